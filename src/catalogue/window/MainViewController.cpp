#include "catalogue/window/MainViewController.h"

#include "catalogue/window/CataloguePage.h"
#include "catalogue/window/SendToEditor.h"
#include "catalogue/window/ThemeSending.h"
#include "platform/UINavigationController.h"
#include "platform/UITableViewSubtitleCell.h"
#include "platform/UIWindow.h"
#include "platform/foundation/NSLog.h"
#include "platform/foundation/UIColor.h"
#include "preview/window/PreviewController.h"
#include "views/SectionHeader.h"

#include <QCoreApplication>
#include <QThread>

#include <cstdlib>

namespace
{
const QColor installedYellow = UIColor::colorWithRed(1.0, 1.0, 210.0 / 255.0, 1.0).qColor();
} // namespace

std::shared_ptr<MainViewController> MainViewController::init(const EditorFolders &folders)
{
    const auto catalogue = own(new MainViewController(folders));
    catalogue->install();
    return catalogue;
}

std::shared_ptr<MainViewController>
MainViewController::initFromEditor(const EditorFolders &folders,
                                   std::shared_ptr<CustomViewController> editor)
{
    const auto catalogue = init(folders);
    catalogue->_customViewController = std::move(editor);
    catalogue->_isFromEditor = true;
    return catalogue;
}

MainViewController::MainViewController(const EditorFolders &folders)
    : _folders(folders), _selectedTheme(folders.theme.preferences())
{
    connect(&_desk, &ThemeDesk::kept, this, &MainViewController::listKept);
    connect(&_keptMenu, &KeptThemeMenu::changed, this, &MainViewController::listKept);
    connect(&_desk, &ThemeDesk::editWanted, this, [this](const QString &name) {
        askToEdit({ThemeRecord::keptSection(), name, {}, true, true});
    });
}

MainViewController::~MainViewController()
{
    NSLog("%s", {"-[MainViewController dealloc]"});
}

void MainViewController::install()
{
    NSLog("%s", {"-[MainViewController install]"});
    _tableSource = ThemeList::load(_folders.resources);
}

std::shared_ptr<MainViewController> MainViewController::self()
{
    return std::static_pointer_cast<MainViewController>(shared_from_this());
}

void MainViewController::viewDidLoad()
{
    _overlays->setView(page<CataloguePage>(), *engine());
    _tableView = page<CataloguePage>().table;
    _saving.setTable(_tableView);
    _preview.viewDidLoad(page<CataloguePage>());
    _tableView->setDelegate(this);
    _tableView->setDataSource(this);
    _tableView->setContentInset(0.0, 0.0);
}

void MainViewController::viewWillAppear(bool)
{
    navigationController()->setNavigationBarHidden(!_isFromEditor);
    page<CataloguePage>().setListOpacity(1.0);
}

void MainViewController::viewDidAppear(bool)
{
    _preview.viewDidAppear(document());
    UIWindow::afterFirstFrame(this, [this] { listKept(); }); // there may be a thousand of them
}

void MainViewController::listKept(const QString &shown)
{
    const auto list = [documents = _folders.theme.documents] {
        return ThemeLibrary::open(documents)->themes();
    };
    _listing.run(list, [this, shown](const std::vector<KeptTheme> &kept) {
        _preview.noteChanges();
        if (_tableSource.setKept(kept))
            _preview.takeNewList();
        showKept(shown);
    });
}

void MainViewController::showKept(const QString &name)
{
    for (int section = 0; !name.isEmpty() && section < numberOfSectionsInTableView(); ++section)
        for (int row = 0; row < numberOfRowsInSection(section); ++row)
            if (const ThemeRecord &record = _tableSource.record(section, row);
                record.kept && record.name == name)
                return _tableView->flashRow({section, row});
}

void MainViewController::viewWillDisappear(bool)
{
    _preview.viewWillDisappear();
}

ThemeDocument *MainViewController::document() const
{
    return _customViewController ? &_customViewController->document() : nullptr;
}

void MainViewController::viewDidLayoutSubviews()
{
    const CatalogueLayout layout = CatalogueLayout::make(
        view()->size(), _isFromEditor ? UINavigationController::navigationBarHeight() : 0.0);
    if (layout == _layout)
        return;
    _layout = layout;
    _overlays->setFrames(layout.loadingView, view()->height());
    page<CataloguePage>().place(layout);
}

void MainViewController::prepareForTermination()
{
    _saving.finish();
    _desk.finish();
    _keptMenu.finish();
    const auto editor = std::exchange(_customViewController, nullptr);
    if (editor && !_isFromEditor)
        editor->prepareForTermination();
}

void MainViewController::applicationShouldBecomeActive()
{
    NSLog("%s", {"-[MainViewController applicationShouldBecomeActive]"});
}

int MainViewController::numberOfSectionsInTableView() const
{
    return _tableSource.numberOfSections();
}

QString MainViewController::titleForHeaderInSection(int section) const
{
    return _tableSource.titleForSection(section);
}

int MainViewController::numberOfRowsInSection(int section) const
{
    return _tableSource.numberOfRowsInSection(section);
}

double MainViewController::heightForRowAtIndexPath(NSIndexPath) const
{
    return 44.0;
}

void MainViewController::willDisplayHeaderView(UITableViewHeader &header, int)
{
    paintSectionHeader(header);
}

UITableViewCell *MainViewController::cellForRowAtIndexPath(UITableView &table,
                                                           NSIndexPath indexPath)
{
    const QString identifier = "CustomTableCell";
    auto *cell = qobject_cast<UITableViewSubtitleCell *>(
        table.dequeueReusableCellWithIdentifier(identifier));
    if (!cell)
        cell = UITableViewSubtitleCell::initWithReuseIdentifier(identifier, *engine());

    const ThemeRecord &record = _tableSource.record(indexPath.section, indexPath.row);
    // A reused cell gets one more each time and keeps them all, as on the phone. One of them fires.
    if (!record.isCustom())
        cell->addGestureRecognizer(std::make_unique<UILongPressGestureRecognizer>(
            [this](const UILongPressGestureRecognizer &gesture) { handleLongCellPress(gesture); }));
    const bool isInstalled = this->isInstalled(record);
    cell->textLabel()->setText(record.name);
    cell->detailTextLabel()->setText(record.subtitle());
    cell->setBackgroundColor(isInstalled ? installedYellow : QColor(Qt::white));
    using enum UITableViewCell::AccessoryType;
    cell->setAccessoryType(isInstalled           ? Checkmark
                           : record.isOwnTheme() ? DisclosureIndicator
                                                 : None);
    // The user's own row takes both of these over from the row that the cell showed before, and no
    // row ever takes the style None away again, as on the phone.
    if (isInstalled && !record.isOwnTheme())
        cell->setSelectionStyle(UITableViewCell::SelectionStyle::None);
    if (!record.isOwnTheme())
        cell->setUserInteractionEnabled(record.active);
    _preview.showPicture(*cell, record);
    return cell;
}

bool MainViewController::isInstalled(const ThemeRecord &record) const
{
    return selectedTheme() == record.name && _selectedTheme.isKept() == record.kept;
}

void MainViewController::didSelectRowAtIndexPath(NSIndexPath indexPath)
{
    _tableView->deselectRow(indexPath, true);
    const ThemeRecord &record = _tableSource.record(indexPath.section, indexPath.row);
    if (record.isCustom()) {
        openEditor(true);
        return;
    }
    _clickedTheme = record;
    if (isInstalled(record) && !record.kept) { // a kept one may have changed since
        showAlert(std::make_unique<UIAlertView>(
            QString("%1 is already your chosen theme.").arg(record.name), QString(),
            std::weak_ptr<UIAlertViewDelegate>(), QStringList{"OK"}));
        return;
    }
    auto alert = std::make_unique<UIAlertView>("Selecting this will overwrite your current theme.",
                                               "Are you sure you want to continue?", self(),
                                               QStringList{"Cancel", "OK"});
    alert->setTag(InstallTag);
    showAlert(std::move(alert));
}

bool MainViewController::keyPressed(int key, Qt::KeyboardModifiers modifiers)
{
    PreviewModel *const model = _preview.model();
    const Action preview{tr("Preview"),
                         [model] { PreviewController::toggle(*model); },
                         model && !_overlays->isLoading(),
                         {Qt::CTRL | Qt::Key_P}};
    const Action open{
        tr("Open\u2026"), [this] { _desk.chooseFile(); }, _desk.isFree(), {Qt::CTRL | Qt::Key_O}};
    const Action back{tr("Back"),
                      [this] { navigationController()->goBack(); },
                      _isFromEditor,
                      {Qt::Key_Escape, Qt::CTRL | Qt::Key_T}};
    if (key == Qt::Key_V && modifiers == Qt::ControlModifier)
        return _desk.openCopied();
    return performShortcut({preview, open, back}, key, modifiers);
}

bool MainViewController::takesDrop(const QMimeData &data)
{
    return _desk.isFree() && ThemeDesk::canOpen(data);
}

bool MainViewController::showMenuForRowAtIndexPath(NSIndexPath indexPath)
{
    const ThemeRecord &record = _tableSource.record(indexPath.section, indexPath.row);
    if (record.kept) {
        _keptMenu.show(record.name);
        return true;
    }
    const auto folder = themeResourceFolder(_folders.resources, record.name);
    if (!record.isReadyMade() || !folder)
        return false;
    const Action edit{tr("Edit"), [this, record] { askToEdit(record); }};
    const ThemeDesk::Package package = [name = record.name, folder = *folder,
                                        resources = _folders.resources] {
        return packageInFolder(folder, name, resources);
    };
    _menu = ActionMenu::show(record.name,
                             {edit, sendAction(_folders.theme.documents, record.name, package)});
    return true;
}

void MainViewController::handleLongCellPress(const UILongPressGestureRecognizer &gesture)
{
    const NSIndexPath indexPath = _tableView->indexPathForCell(gesture.view());
    if (gesture.state() != UILongPressGestureRecognizer::State::Began || !indexPath.isValid())
        return;
    _tableView->deselectRow(indexPath, true);
    askToEdit(_tableSource.record(indexPath.section, indexPath.row));
}

void MainViewController::askToEdit(const ThemeRecord &record)
{
    _clickedTheme = record;
    QString warning = "Doing so will overwrite your current custom theme.";
    if (_isFromEditor && document()->hasUnsavedChanges())
        warning += '\n' + tr("The changes that you have not saved will be lost.");
    auto alert =
        std::make_unique<UIAlertView>("Would you like to send this theme to the editor to edit?",
                                      warning, self(), QStringList{"No", "Yes"});
    alert->setTag(EditTag);
    showAlert(std::move(alert));
}

void MainViewController::clickedButtonAtIndex(UIAlertView &alertView, int buttonIndex)
{
    if (alertView.tag() == EditedTag)
        openEditor(false);
    else if (alertView.tag() == EditTag && buttonIndex == 1)
        editPredefinedTheme();
    else if (alertView.tag() == InstallTag && buttonIndex == 1)
        save();
}

/// Only a tap colours the bar: it keeps the colour it has when an edit flow opens the editor, as on
/// the phone.
void MainViewController::openEditor(bool colorsBar)
{
    if (_isFromEditor)
        return navigationController()->popViewController();
    if (!_customViewController)
        makeEditor();
    _customViewController->preview()->setModel(_preview.model());
    if (_customViewController->source().status() == ElementDataSource::Status::Unusable) {
        QCoreApplication::exit(EXIT_FAILURE); // as a start into the editor does; the log says why
        return;
    }
    page<CataloguePage>().setListOpacity(0.0);
    _customViewController->loadViewIfNeeded(*engine());
    _customViewController->view()->setPosition(view()->position());
    _customViewController->view()->setSize(view()->size());
    _customViewController->setDelegate(self());
    _customViewController->setTitle("Custom Theme");
    navigationController()->setNavigationBarHidden(false);
    if (colorsBar)
        navigationController()->setNavigationBarColor(themeGreen());
    navigationController()->pushViewController(_customViewController, true);
}

void MainViewController::makeEditor()
{
    _customViewController = CustomViewController::initFromMainView(_folders);
    EditorThemes *const themes = _customViewController->themes();
    connect(themes, &EditorThemes::themesTapped, this,
            [this] { navigationController()->goBack(); });
    connect(themes, &EditorThemes::editWanted, this, [this](const QString &name) {
        sendToEditor(_customViewController, _folders, name,
                     [this] { return setSelectedTheme(ThemeRecord::ownTheme()); });
    });
}

std::error_code MainViewController::setSelectedTheme(const QString &name, bool isKept)
{
    const std::error_code error = _selectedTheme.set(name, isKept);
    if (error)
        NSLog("Error saving the selected theme %@", {QString::fromStdString(error.message())});
    const auto redraw = [weak = weak_from_this()] {
        const auto catalogue = std::static_pointer_cast<MainViewController>(weak.lock());
        if (catalogue && catalogue->_tableView)
            catalogue->_tableView->reloadData();
    };
    if (QThread::currentThread() == thread())
        redraw();
    else
        MainQueue::async(redraw);
    return error;
}

void MainViewController::setCustomTheme()
{
    setSelectedTheme(ThemeRecord::ownTheme());
}

void MainViewController::copyTheme(const BeginCopy &begin, FinishCopy finish)
{
    _overlays->setNotice({});
    _saving.run(
        "Saving theme...", self(),
        [this, begin, theme = _clickedTheme.name] {
            return begin(_folders.resources, theme, _folders.theme);
        },
        [this, finish, theme = _clickedTheme](const ThemeInstallation &installation) {
            (this->*finish)(installation, theme);
        });
}

void MainViewController::save()
{
    NSLog("SAVING THEME... %@", {_clickedTheme.name});
    const auto beginKept = [](const QString &, const QString &theme,
                              const ThemeLocations &locations) {
        return beginInstallingKept(theme, locations);
    };
    copyTheme(_clickedTheme.kept ? BeginCopy(beginKept) : BeginCopy(beginInstalling),
              &MainViewController::finishSave);
}

void MainViewController::finishSave(const ThemeInstallation &installation, const ThemeRecord &theme)
{
    if (!finishCopying(installation, theme.name, theme.kept))
        return;
    showAlert(std::make_unique<UIAlertView>(
        "Saved",
        QString("%1 has been saved. Check biteSMS for \"Tintloom\" under themes then select "
                "\"Apply Theme\".")
            .arg(theme.name),
        std::weak_ptr<UIAlertViewDelegate>(), QStringList{"OK"}));
}

void MainViewController::editPredefinedTheme()
{
    NSLog("SAVING PREDEFINED THEME... %@", {_clickedTheme.name});
    const auto begin = [this, isKept = _clickedTheme.kept](const QString &resources,
                                                           const QString &theme,
                                                           const ThemeLocations &locations) {
        // The next editor shall read the new working copy. Nobody else looks at this one now: it is
        // off the screen, and the busy box is up.
        if (!_isFromEditor)
            _customViewController.reset();
        return isKept ? beginEditingKept(theme, locations)
                      : beginEditing(resources, theme, locations);
    };
    copyTheme(begin, &MainViewController::finishEditing);
}

void MainViewController::finishEditing(const ThemeInstallation &installation,
                                       const ThemeRecord &theme)
{
    const bool isDone = finishCopying(installation, ThemeRecord::ownTheme(), false);
    if (isDone && _isFromEditor)
        _customViewController->startAnew(); // the installation still locks the folders
    _preview.followChoices(document());
    if (!isDone)
        return;
    auto alert = std::make_unique<UIAlertView>(
        "Saved", QString("%1 has been saved as your custom theme.").arg(theme.name), self(),
        QStringList{"OK"});
    alert->setTag(EditedTag);
    showAlert(std::move(alert));
}

bool MainViewController::finishCopying(const ThemeInstallation &installation,
                                       const QString &selected, bool isKept)
{
    SaveReport report = ::copyTheme(installation);
    const bool isDone = report.refusal.isEmpty();
    if (isDone)
        report.addFailure(_folders.theme.preferences(), setSelectedTheme(selected, isKept));
    removeLoader();
    _overlays->showOutcome(report.notice(), report.copyFrom(_folders.theme));
    return isDone;
}

void MainViewController::showAlert(std::unique_ptr<UIAlertView> alertView)
{
    _alertView = alertView.get();
    UIAlertView::show(std::move(alertView));
}
