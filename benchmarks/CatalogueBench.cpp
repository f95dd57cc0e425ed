// From setting up the catalogue's screen to its first drawn frame, with and without the pictures of
// its themes, which must not delay it.

#include "BenchApplication.h"
#include "QuietLog.h"
#include "catalogue/window/MainViewController.h"
#include "library/ChosenPackage.h"
#include "platform/QMLViews.h"
#include "platform/UINavigationController.h"
#include "support/Canvas.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <algorithm>
#include <benchmark/benchmark.h>
#include <memory>

namespace
{
constexpr double scale = 2.0;
constexpr QSize tall(320, 900); // every row is in sight
constexpr int pictures = 13;    // of the fourteen themes one is only announced

class Catalogue
{
public:
    Catalogue(Canvas &canvas, QQmlEngine &engine, const EditorFolders &folders, bool showsPictures)
        : _catalogue(MainViewController::init(folders)),
          _navigation(UINavigationController::initWithRootViewController(_catalogue))
    {
        _catalogue->preview().setShowsPictures(showsPictures);
        _navigation->loadViewIfNeeded(engine);
        _navigation->view()->setParentItem(canvas.contentItem());
        _navigation->view()->setSize(tall);
        _navigation->viewWillAppear(false);
        _navigation->viewDidAppear(false);
        canvas.draw();
    }
    ~Catalogue() { _navigation->prepareForTermination(); }

    /// Until every row that has a picture shows it.
    void awaitPictures(Canvas &canvas)
    {
        _catalogue->preview().setShowsPictures(true);
        while (shownPictures() < pictures)
            QCoreApplication::processEvents();
        canvas.draw();
    }

private:
    int shownPictures() const
    {
        auto *table = _catalogue->view()->property("table").value<UITableView *>();
        const auto rows = table->indexPathsForVisibleRows();
        return int(std::ranges::count_if(rows, [table](NSIndexPath row) {
            const auto *cell =
                qobject_cast<UITableViewSubtitleCell *>(table->cellForRowAtIndexPath(row));
            return !cell->picture().isNull();
        }));
    }

    std::shared_ptr<MainViewController> _catalogue;
    std::shared_ptr<UINavigationController> _navigation;
};

/// Puts so many themes among the user's own. As plain files: what is flushed to the disk takes half
/// a minute, for each repetition.
void putKept(const QString &documents, int count)
{
    const auto elements = ElementDataSource::loadWith(TINTLOOM_SOURCE_RESOURCES, nullptr);
    PackageContents package = packageContents(elements, {}, 1.0);
    for (int number = 0; number < count; ++number) {
        const QString name = QStringLiteral("Theme %1").arg(number);
        package.info.setValue(QStringLiteral("name"), name);
        const QString kept = documents + QStringLiteral("/Themes/") + name;
        QDir().mkpath(kept);
        QFile file(kept + QStringLiteral("/Info.plist"));
        file.open(QFile::WriteOnly);
        file.write(PropertyList::writeDictionary(package.info));
    }
}

/// Times the first frame, or how long it takes until every picture is drawn.
void openCatalogue(benchmark::State &state, bool showsPictures, bool waits, int kept = 0)
{
    prepareBenchApplication();
    const QuietLog quiet;
    const QTemporaryDir folder;
    const EditorFolders folders{TINTLOOM_SOURCE_RESOURCES,
                                {folder.filePath("root"), folder.filePath("documents")}};
    putKept(folders.theme.documents, kept);
    QQmlEngine engine;
    QMLViews::prepareEngine(engine);
    Canvas canvas(tall, scale);
    Catalogue(canvas, engine, folders, true).awaitPictures(canvas); // reads the files, once
    for (auto _ : state) {
        auto catalogue = std::make_unique<Catalogue>(canvas, engine, folders, showsPictures);
        if (waits)
            catalogue->awaitPictures(canvas);
        // The same on all sides, so that each begins with the same caches and heap.
        state.PauseTiming();
        catalogue->awaitPictures(canvas);
        catalogue.reset();
        state.ResumeTiming();
    }
}

BENCHMARK_CAPTURE(openCatalogue, with, true, false)
    ->Name("open_catalogue")
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK_CAPTURE(openCatalogue, kept, true, false, 1000)
    ->Name("open_catalogue_kept/1000")
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK_CAPTURE(openCatalogue, without, false, false)
    ->Name("open_catalogue_without")
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK_CAPTURE(openCatalogue, all, true, true)
    ->Name("open_catalogue_all")
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
} // namespace
