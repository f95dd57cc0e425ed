// Listing many kept themes ("list_kept") beside reading and parsing their property lists and
// looking at nothing ("list_kept_read").
#include "QuietLog.h"
#include "library/ChosenPackage.h"
#include "library/ThemeLibrary.h"
#include "platform/foundation/NSFileManager.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>
#include <plist/plist.h>

namespace
{
constexpr int count = 1000;

/// Packages of the elements that ship. They are put there as plain files: to flush a thousand to
/// the disk takes half a minute.
class Fixture
{
public:
    Fixture()
    {
        const auto elements = ElementDataSource::loadWith(TINTLOOM_SOURCE_RESOURCES, nullptr);
        PackageContents package = packageContents(elements, {}, 1.0);
        for (int i = 0; i < count; ++i) {
            const QString name = QStringLiteral("Theme %1").arg(i);
            package.info.setValue(QStringLiteral("name"), name);
            const QString themes = folder.path() + QStringLiteral("/Themes/");
            QDir().mkpath(themes + name);
            files.append(themes + name + QStringLiteral("/Info.plist"));
            QFile file(files.back());
            file.open(QFile::WriteOnly);
            file.write(PropertyList::writeDictionary(package.info));
        }
    }

    const QuietLog quiet;
    QTemporaryDir folder;
    QStringList files;
};

void listKept(benchmark::State &state)
{
    const Fixture fixture;
    for (auto _ : state)
        if (ThemeLibrary::open(fixture.folder.path())->themes().size() != count)
            state.SkipWithError("the listing failed");
}
BENCHMARK(listKept)->Name("list_kept/1000")->Unit(benchmark::kMillisecond);

void listKeptRead(benchmark::State &state)
{
    const Fixture fixture;
    for (auto _ : state) {
        for (const QString &file : fixture.files) {
            const QByteArray bytes = NSFileManager::contentsAtPath(file).bytes;
            plist_t list = nullptr;
            plist_from_xml(bytes.constData(), uint32_t(bytes.size()), &list);
            if (list == nullptr)
                state.SkipWithError("the parse failed");
            plist_free(list);
        }
    }
}
BENCHMARK(listKeptRead)->Name("list_kept_read/1000")->Unit(benchmark::kMillisecond);
} // namespace
