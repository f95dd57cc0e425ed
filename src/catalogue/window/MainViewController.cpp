#include "catalogue/window/MainViewController.h"

#include "catalogue/window/CataloguePage.h"
#include "catalogue/window/ThemeSending.h"
#include "platform/UINavigationController.h"
#include "platform/UITableViewSubtitleCell.h"
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

MainViewController::MainViewController(const EditorFolders &folders)
    : _folders(folders), _selectedTheme(folders.theme.preferences())
{
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
    navigationController()->setNavigationBarHidden(true);
    page<CataloguePage>().setListOpacity(1.0);
}

void MainViewController::viewDidAppear(bool)
{
    _preview.viewDidAppear(document());
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
    const CatalogueLayout layout = CatalogueLayout::make(view()->size());
    if (layout == _layout)
        return;
    _layout = layout;
    _overlays->setFrames(layout.loadingView, view()->height());
    page<CataloguePage>().place(layout);
}

void MainViewController::prepareForTermination()
{
    _saving.finish();
    if (const auto editor = std::exchange(_customViewController, nullptr))
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
    const bool isInstalled = selectedTheme() == record.name;
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

void MainViewController::didSelectRowAtIndexPath(NSIndexPath indexPath)
{
    _tableView->deselectRow(indexPath, true);
    const ThemeRecord &record = _tableSource.record(indexPath.section, indexPath.row);
    if (record.isCustom()) {
        openEditor(true);
        return;
    }
    _clickedTheme = record.name;
    if (selectedTheme() == _clickedTheme) {
        showAlert(std::make_unique<UIAlertView>(
            QString("%1 is already your chosen theme.").arg(_clickedTheme), QString(),
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
    return performShortcut({preview}, key, modifiers);
}

void MainViewController::handleLongCellPress(const UILongPressGestureRecognizer &gesture)
{
    const NSIndexPath indexPath = _tableView->indexPathForCell(gesture.view());
    if (gesture.state() != UILongPressGestureRecognizer::State::Began || !indexPath.isValid())
        return;
    _tableView->deselectRow(indexPath, true);
    askToEdit(_tableSource.record(indexPath.section, indexPath.row).name);
}

bool MainViewController::showMenuForRowAtIndexPath(NSIndexPath indexPath)
{
    const ThemeRecord &record = _tableSource.record(indexPath.section, indexPath.row);
    const auto folder = themeResourceFolder(_folders.resources, record.name);
    if (!record.isReadyMade() || !folder)
        return false;
    const Action edit{tr("Edit"), [this, theme = record.name] { askToEdit(theme); }};
    _menu = ActionMenu::show(record.name,
                             {edit, sendAction(_folders.theme.documents, record.name, *folder)});
    return true;
}

void MainViewController::askToEdit(const QString &theme)
{
    _clickedTheme = theme;
    auto alert = std::make_unique<UIAlertView>(
        "Would you like to send this theme to the editor to edit?",
        "Doing so will overwrite your current custom theme.", self(), QStringList{"No", "Yes"});
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
    if (!_customViewController)
        _customViewController = CustomViewController::initFromMainView(_folders);
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

std::error_code MainViewController::setSelectedTheme(const QString &name)
{
    const std::error_code error = _selectedTheme.set(name);
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
        [this, begin, theme = _clickedTheme] {
            return begin(_folders.resources, theme, _folders.theme);
        },
        [this, finish, theme = _clickedTheme](const ThemeInstallation &installation) {
            (this->*finish)(installation, theme);
        });
}

void MainViewController::save()
{
    NSLog("SAVING THEME... %@", {_clickedTheme});
    copyTheme(beginInstalling, &MainViewController::finishSave);
}

void MainViewController::finishSave(const ThemeInstallation &installation, const QString &theme)
{
    if (!finishCopying(installation, theme))
        return;
    showAlert(std::make_unique<UIAlertView>(
        "Saved",
        QString("%1 has been saved. Check biteSMS for \"Tintloom\" under themes then select "
                "\"Apply Theme\".")
            .arg(theme),
        std::weak_ptr<UIAlertViewDelegate>(), QStringList{"OK"}));
}

void MainViewController::editPredefinedTheme()
{
    NSLog("SAVING PREDEFINED THEME... %@", {_clickedTheme});
    const auto begin = [this](const QString &resources, const QString &theme,
                              const ThemeLocations &locations) {
        // The next editor shall read the new working copy. Nobody else looks at this one now: it is
        // off the screen, and the busy box is up.
        _customViewController.reset();
        return beginEditing(resources, theme, locations);
    };
    copyTheme(begin, &MainViewController::finishEditing);
}

void MainViewController::finishEditing(const ThemeInstallation &installation, const QString &theme)
{
    const bool isDone = finishCopying(installation, ThemeRecord::ownTheme());
    _preview.followChoices(document());
    if (!isDone)
        return;
    auto alert = std::make_unique<UIAlertView>(
        "Saved", QString("%1 has been saved as your custom theme.").arg(theme), self(),
        QStringList{"OK"});
    alert->setTag(EditedTag);
    showAlert(std::move(alert));
}

bool MainViewController::finishCopying(const ThemeInstallation &installation,
                                       const QString &selected)
{
    SaveReport report = ::copyTheme(installation);
    const bool isDone = report.refusal.isEmpty();
    if (isDone)
        report.addFailure(_folders.theme.preferences(), setSelectedTheme(selected));
    removeLoader();
    _overlays->showOutcome(report.notice(), report.copyFrom(_folders.theme));
    return isDone;
}

void MainViewController::showAlert(std::unique_ptr<UIAlertView> alertView)
{
    _alertView = alertView.get();
    UIAlertView::show(std::move(alertView));
}
