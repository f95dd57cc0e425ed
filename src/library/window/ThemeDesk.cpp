#include "library/window/ThemeDesk.h"

#include "library/EditedTheme.h"
#include "library/ShareText.h"
#include "library/ThemeExport.h"
#include "library/ThemeName.h"
#include "library/window/NameController.h"
#include "library/window/ShareController.h"
#include "platform/FilePanel.h"
#include "platform/UIWindow.h"
#include "platform/foundation/NSFileManager.h"
#include "platform/foundation/NSLog.h"
#include "platform/foundation/UIScreen.h"
#include "theme/WorkingCopyKeeper.h"

#include <QClipboard>
#include <QDesktopServices>
#include <QFileInfo>
#include <QGuiApplication>
#include <QUrl>

using namespace Qt::StringLiterals;
using IfTaken = ThemeLibrary::IfTaken;

namespace
{
/// The first file or folder of this machine among what was dropped; else empty.
QString pathIn(const QMimeData &data)
{
    for (const QUrl &url : data.urls())
        if (url.isLocalFile())
            return url.toLocalFile();
    return {};
}

LibraryResult keepHere(const CurrentChoices &choices, const QString &name, IfTaken ifTaken)
{
    const auto keeper = WorkingCopyKeeper::open(choices.locations);
    if (!keeper->refusal().isEmpty())
        return {LibraryResult::Outcome::Failed, keeper->refusal(), {}};
    const auto library = ThemeLibrary::open(choices.locations.documents);
    auto [result, unnoted] = keepChoices(choices, name, ifTaken, *library);
    if (unnoted)
        result.sentence +=
            u"\n"_s + NSFileManager::withReason(choices.locations.preferences(), unnoted);
    return result;
}

void showFolderOf(const QString &path)
{
    if (!QDesktopServices::openUrl(QUrl::fromLocalFile(QFileInfo(path).path())))
        NSLog("Nothing on this desktop shows the folder of %@", {path});
}

void dismissPage()
{
    UIWindow::keyWindow()->dismissViewController();
}
} // namespace

ThemeDesk::ThemeDesk(UIViewController &screen, ScreenOverlays &overlays, ScreenWork &busy,
                     const QString &resources, const ThemeLocations &locations)
    : _screen(screen),
      _overlays(overlays),
      _busy(busy),
      _resources(resources),
      _locations(locations)
{
}

bool ThemeDesk::isFree() const
{
    const UIWindow *window = UIWindow::keyWindow();
    return window && !window->presentedViewController() && !_overlays.isLoading();
}

void ThemeDesk::present(std::shared_ptr<UIViewController> page)
{
    UIWindow::keyWindow()->presentViewController(std::move(page));
}

ThemeDesk::Package ThemeDesk::packageOf(const ElementDataSource &choices) const
{
    return [current =
                CurrentChoices{choices, _resources, _locations, UIScreen::mainScreen().scale()}] {
        const auto library = ThemeLibrary::open(current.locations.documents);
        return packageOfChoices(current, *library);
    };
}

ThemeDesk::Package ThemeDesk::packageOf(const QString &kept) const
{
    return [kept, resources = _resources, documents = _locations.documents]() -> NamedPackage {
        const auto library = ThemeLibrary::open(documents);
        const auto theme = library->find(kept);
        if (!theme)
            return {{}, kept, library->read(kept).result.sentence};
        return packageInFolder(theme->folder, theme->name, resources);
    };
}

void ThemeDesk::askForName(
    const QString &title, const QString &verb, const QString &proposal,
    NameEntry::Replacing replacing,
    std::function<LibraryResult(const QString &, ThemeLibrary::IfTaken)> attempt)
{
    const auto page = NameController::init(title, verb, NameEntry::make(proposal, replacing));
    connect(page.get(), &NameController::closeTapped, this, dismissPage);
    const std::weak_ptr<NameController> asked = page;
    const auto finish = [this, asked](const LibraryResult &result) {
        const auto page = asked.lock();
        if (page)
            page->entry()->tell(result);
        if (!result.isDone())
            return;
        if (page && UIWindow::keyWindow()->presentedViewController() == page.get())
            dismissPage();
        _overlays.showQuietly(result.sentence, {});
        emit kept(result.name);
    };
    connect(page->entry(), &NameEntry::accepted, this,
            [this, attempt = std::move(attempt), finish](const QString &name, IfTaken ifTaken) {
                _work.run([attempt, name, ifTaken] { return attempt(name, ifTaken); }, finish);
            });
    present(page);
    page->entry()->focus();
}

void ThemeDesk::keep(const ElementDataSource &choices)
{
    const CurrentChoices current{choices, _resources, _locations, UIScreen::mainScreen().scale()};
    askForName(tr("Keep Theme"), tr("Keep"),
               EditedTheme(_locations.preferences()).name().value_or(QString()),
               NameEntry::Replacing::OnRequest, [current](const QString &name, IfTaken ifTaken) {
                   return keepHere(current, name, ifTaken);
               });
}

void ThemeDesk::share(const Package &package)
{
    struct Made {
        ShareController::Shared shared;
        QString problem;
    };
    const auto make = [package]() -> Made {
        const NamedPackage made = package();
        return made.contents ? Made{ShareController::shared(made), {}} : Made{{}, made.problem};
    };
    const auto show = [this](const Made &made) {
        _busy.stop();
        if (!made.problem.isEmpty())
            return _overlays.setNotice(tr("The theme cannot be shared.") + u'\n' + made.problem);
        const auto page = ShareController::init(made.shared);
        connect(page.get(), &ShareController::closeTapped, this, dismissPage);
        present(page);
    };
    _busy.run(tr("Making the text..."), _screen.shared_from_this(), make, show);
}

void ThemeDesk::exportTheme(const Package &package, const QString &name)
{
    FilePanel::save(this, tr("Export Theme"), ThemeName::freeFolder(name, {}),
                    {{tr("Tintloom themes"), {u"*.tintloom"_s}, u".tintloom"_s},
                     {tr("Zip archives"), {u"*.zip"_s}, u".zip"_s},
                     {tr("Tar archives"), {u"*.tar.gz"_s, u"*.tgz"_s}, u".tar.gz"_s},
                     {tr("Folders"), {u"*"_s}}},
                    [this, package](const QString &path) { writeExport(package, path, false); });
}

void ThemeDesk::writeExport(const Package &package, const QString &path, bool replaces)
{
    const auto write = [package, path, replaces]() -> ThemeExport::Result {
        const NamedPackage made = package();
        if (!made.contents)
            return {made.problem, false};
        return ThemeExport::write(*made.contents, path,
                                  replaces ? ThemeExport::IfThere::Replace
                                           : ThemeExport::IfThere::Refuse);
    };
    const auto finish = [this, package, path, replaces](const ThemeExport::Result &result) {
        _busy.stop();
        if (result.problem.isEmpty())
            return _overlays.showQuietly(tr("The theme has been exported to\n%1").arg(path),
                                         {{tr("Show Folder"), [path] { showFolderOf(path); }}});
        if (!result.exists || replaces)
            return _overlays.setNotice(tr("The theme has not been exported.") + u'\n' +
                                       result.problem);
        _question = Question::ask(tr("There is something of that name already."), path,
                                  tr("Replace"), [=, this] { writeExport(package, path, true); });
    };
    _busy.run(tr("Exporting theme..."), _screen.shared_from_this(), write, finish);
}

void ThemeDesk::chooseFile()
{
    FilePanel::open(
        this, tr("Open a Theme, or a Folder's Info.plist"),
        {{tr("Themes"), {u"*.tintloom"_s, u"*.zip"_s, u"*.tar.gz"_s, u"*.tgz"_s, u"Info.plist"_s}},
         {tr("All files"), {u"*"_s}}},
        [this](const QString &path) { openPath(path); });
}

bool ThemeDesk::canOpen(const QMimeData &data)
{
    return !pathIn(data).isEmpty() || (data.hasText() && ShareText::isMeant(data.text()));
}

bool ThemeDesk::open(const QMimeData &data)
{
    if (!isFree() || !canOpen(data))
        return false;
    if (const QString path = pathIn(data); !path.isEmpty())
        openPath(path);
    else
        open([text = data.text()](const ThemeOpener &opener) { return opener.fromText(text); });
    return true;
}

bool ThemeDesk::openCopied()
{
    return canOpenCopied() && open(*QGuiApplication::clipboard()->mimeData());
}

bool ThemeDesk::canOpenCopied()
{
    const QMimeData *copied = QGuiApplication::clipboard()->mimeData(); // null where there is none
    return copied && canOpen(*copied);
}

void ThemeDesk::openPath(const QString &path)
{
    if (isFree())
        open([path](const ThemeOpener &opener) { return opener.fromPath(path); });
}

void ThemeDesk::open(const std::function<ThemeOpening(const ThemeOpener &)> &open)
{
    const auto read = [open, resources = _resources, documents = _locations.documents] {
        return OpenController::pending(open, resources, documents);
    };
    _overlays.setNotice({});
    _busy.run(tr("Opening theme..."), _screen.shared_from_this(), read,
              [this](const OpenController::Pending &pending) {
                  _busy.stop();
                  showPending(pending);
              });
}

void ThemeDesk::showPending(const OpenController::Pending &pending)
{
    if (!pending.theme)
        return _overlays.setNotice(tr("The theme cannot be opened.") + u'\n' + pending.problem);
    const auto page = OpenController::init(pending);
    connect(page.get(), &OpenController::closeTapped, this, dismissPage);
    const std::weak_ptr<OpenController> shown = page;
    const auto finish = [this, shown](const LibraryResult &result) {
        if (const auto page = shown.lock())
            finishKeeping(*page, result);
    };
    connect(page->entry(), &NameEntry::accepted, this,
            [this, finish, theme = page->theme()](const QString &name, IfTaken ifTaken) {
                const auto attempt = [theme, name, ifTaken, resources = _resources,
                                      documents = _locations.documents,
                                      scale = UIScreen::mainScreen().scale()] {
                    return keepOpened(theme, name, ifTaken, resources, scale,
                                      *ThemeLibrary::open(documents));
                };
                _work.run(attempt, finish);
            });
    present(page);
}

void ThemeDesk::finishKeeping(const OpenController &page, const LibraryResult &result)
{
    page.entry()->tell(result);
    if (!result.isDone())
        return;
    UIWindow::keyWindow()->dismissViewController(
        [this, result, isToBeEdited = page.isToBeEdited()] {
            _overlays.showQuietly(result.sentence, {});
            emit kept(result.name);
            if (isToBeEdited)
                emit editWanted(result.name);
        });
}
