#include "editor/CustomViewController.h"

#include "editor/EditorActions.h"
#include "editor/EditorPage.h"
#include "platform/UIAlertView.h"
#include "platform/UINavigationController.h"
#include "platform/UIWindow.h"
#include "platform/foundation/NSLog.h"
#include "platform/foundation/UIScreen.h"
#include "theme/ColorText.h"
#include "theme/ElementLocks.h"
#include "views/SectionHeader.h"

#include <algorithm>
#include <utility>

namespace
{
const QString cancelTitle = QStringLiteral("Cancel");
} // namespace

std::shared_ptr<CustomViewController>
CustomViewController::initFromAppDelegate(const EditorFolders &folders)
{
    const auto editor = own(new CustomViewController(folders, false));
    editor->install();
    return editor;
}

std::shared_ptr<CustomViewController>
CustomViewController::initFromMainView(const EditorFolders &folders)
{
    const auto editor = own(new CustomViewController(folders, true));
    editor->install();
    return editor;
}

CustomViewController::CustomViewController(const EditorFolders &folders, bool fromMainView)
    : _folders(folders), _fromMainView(fromMainView)
{
    connect(&_chooserPresentation, &ChooserPresentation::openChanged, this, [this] {
        emit chooserOpenChanged();
        if (!isChooserOpen())
            page<EditorPage>().content->setFocus(true);
    });
}

CustomViewController::~CustomViewController()
{
    _preview->stopWatching();
    NSLog("%s", {"-[CustomViewController dealloc]"});
}

void CustomViewController::install()
{
    NSLog("%s", {"-[CustomViewController install]"});
    _document = std::make_unique<ThemeDocument>(
        ElementDataSource::load(_folders.resources, _folders.theme.documents));
    for (const int index : ElementLocks::load(_folders.theme, source()))
        _document->setLocked(index, true);
    _draft = std::make_unique<EditorDraft>(*_document, _folders.theme.documents, *_overlays);
    _findings = std::make_unique<EditorFindings>(*this);
    connect(_document.get(), &ThemeDocument::changed, this, &CustomViewController::repaint);
    connect(_document.get(), &ThemeDocument::unsavedChanged, this,
            &CustomViewController::markWindow);
    _delegate = std::static_pointer_cast<CustomViewController>(shared_from_this());
}

void CustomViewController::setDelegate(std::shared_ptr<CustomViewDelegate> delegate)
{
    _delegate = std::move(delegate);
}

void CustomViewController::viewDidLoad()
{
    _overlays->setView(page<EditorPage>(), *engine());
    _tableView = page<EditorPage>().table;
    _saving.setTable(_tableView);
    _tableView->setDelegate(this);
    _tableView->setDataSource(this);
    _tableView->setContentInset(_fromMainView ? 0.0 : 20.0, 50.0);
    _preview->viewDidLoad();
    _generator->viewDidLoad();
}

void CustomViewController::viewWillAppear(bool)
{
    if (navigationController())
        navigationController()->setNavigationBarHidden(!_fromMainView);
}

void CustomViewController::viewDidAppear(bool)
{
    markWindow();
    _preview->viewDidAppear();
    UIWindow::afterFirstFrame(this, [this] {
        _themes.showName();
        _draft->offer();
        _findings->look();
    });
}

void CustomViewController::viewWillDisappear(bool)
{
    NSLog("%s", {"-[CustomViewController viewWillDisappear:]"});
    _preview->viewWillDisappear();
}

void CustomViewController::viewDidLayoutSubviews()
{
    _chooserPresentation.setSize(view()->size());
    const EditorLayout layout = EditorLayout::make(
        view()->size(), UINavigationController::navigationBarHeight(), _fromMainView);
    if (layout == _layout)
        return;
    _layout = layout;
    _overlays->setFrames(layout.loadingView, layout.bottomView.y());
    page<EditorPage>().place(layout);
}

void CustomViewController::prepareForTermination()
{
    _saving.finish();
    _themes.desk().finish();
    _chooserPresentation.remove();
    _delegate.reset();
}

int CustomViewController::numberOfSectionsInTableView() const
{
    return source().numberOfSections();
}

QString CustomViewController::titleForHeaderInSection(int section) const
{
    return source().titleForSection(section);
}

int CustomViewController::numberOfRowsInSection(int section) const
{
    return source().numberOfRowsInSection(section);
}

double CustomViewController::heightForRowAtIndexPath(NSIndexPath) const
{
    return 50.0;
}

void CustomViewController::willDisplayHeaderView(UITableViewHeader &header, int)
{
    paintSectionHeader(header);
}

UITableViewCell *CustomViewController::cellForRowAtIndexPath(UITableView &table,
                                                             NSIndexPath indexPath)
{
    const QString identifier = "CustomTableCell";
    auto *cell =
        qobject_cast<CustomTableCell *>(table.dequeueReusableCellWithIdentifier(identifier));
    if (!cell)
        cell = makeCell();
    _rowFade.forget(cell);
    const int index = source().indexAt(indexPath).value();
    ElementRow::paint(*cell, _document->record(index));
    cell->setLocked(_document->isLocked(index));
    cell->setFinding(_findings->words(index));
    return cell;
}

CustomTableCell *CustomViewController::makeCell()
{
    auto *cell = CustomTableCell::initWithStyle(CustomTableCell::Style::Subtitle, "CustomTableCell",
                                                *engine());
    cell->addGestureRecognizer(std::make_unique<UILongPressGestureRecognizer>(
        [this](const UILongPressGestureRecognizer &gesture) {
            if (gesture.state() == UILongPressGestureRecognizer::State::Began)
                showMenuForRowAtIndexPath(_tableView->indexPathForCell(gesture.view()));
        }));
    return cell;
}

CustomTableCell *CustomViewController::cellAt(NSIndexPath indexPath) const
{
    return qobject_cast<CustomTableCell *>(_tableView->cellForRowAtIndexPath(indexPath));
}

void CustomViewController::repaint(const std::vector<int> &indexes)
{
    for (const int index : indexes)
        if (CustomTableCell *cell = _tableView ? cellAt(source().indexPathOf(index)) : nullptr) {
            _rowFade.forget(cell);
            ElementRow::paint(*cell, _document->record(index));
        }
}

void CustomViewController::reveal(const std::vector<int> &indexes)
{
    const auto hasRow = [this](int index) { return source().indexPathOf(index).isValid(); };
    if (const auto shown = std::ranges::find_if(indexes, hasRow); shown != indexes.end())
        _tableView->flashRow(source().indexPathOf(*shown));
}

void CustomViewController::didSelectRowAtIndexPath(NSIndexPath indexPath)
{
    _tableView->deselectRow(indexPath, true);
    const std::optional<int> index = source().indexAt(indexPath);
    if (!index)
        return;
    const ElementRecord &record = _document->record(*index);
    if (record.isChoice())
        showOptions(record, indexPath);
    else
        showChooser(*index, indexPath);
}

void CustomViewController::showChooser(int index, NSIndexPath indexPath)
{
    const auto text = _document->record(index).shownColor();
    const bool wasOpen = isChooserOpen();
    if (navigationController())
        navigationController()->setNavigationBarHidden(true);
    _chooserPresentation.present(
        view(), *engine(), text ? colorFromHexString(*text) : UIColor::whiteColor(), indexPath,
        std::static_pointer_cast<CustomViewController>(shared_from_this()));
    if (wasOpen)
        return;
    ColorPickerViewController *chooser = colorPickerView();
    const auto offer = [this, chooser] { chooser->setPreviewOffered(_preview->isOffered()); };
    offer();
    connect(_preview, &EditorPreview::offeredChanged, chooser, offer);
    connect(chooser, &ColorPickerViewController::previewTapped, _preview, &EditorPreview::showPage);
    chooser->contrast()->follow(source(), index);
    _colors.serve(*chooser);
    connect(chooser, &ColorPickerViewController::colorChanged, this, [this, chooser, index] {
        _document->showPassingColor(index, hexStringForColor(chooser->color()));
    });
}

void CustomViewController::dismissChooser()
{
    _document->dropPassingColor();
    if (navigationController())
        navigationController()->setNavigationBarHidden(!_fromMainView);
    _chooserPresentation.dismiss();
}

void CustomViewController::choose(std::optional<int> index, NSIndexPath indexPath,
                                  const std::optional<UIColor> &color)
{
    CustomTableCell *cell = cellAt(indexPath);
    const QColor before = cell ? cell->backgroundColor() : QColor();
    if (index)
        _document->setColor(*index, color ? hexStringForColor(*color) : QString());
    if (index && color)
        _colors.remember(*color);
    if (cell) {
        ElementRow::paintChosenColor(*cell, color);
        _rowFade.start(*cell, before, color.value_or(UIColor::whiteColor()).qColor());
    }
    dismissChooser();
}

void CustomViewController::dismissWithNoChange()
{
    dismissChooser();
}

void CustomViewController::dismissWithColorSectionAndRow(const UIColor &color,
                                                         std::int32_t selectedSection,
                                                         std::int32_t selectedRow)
{
    const NSIndexPath indexPath{selectedSection, selectedRow};
    choose(source().indexAt(indexPath), indexPath, color);
}

void CustomViewController::dismissWithColorAndRow(const UIColor &color, std::int32_t selectedRow)
{
    choose(elementAt(selectedRow), {0, selectedRow}, color);
}

void CustomViewController::dismissWithNoColorSectionAndRow(std::int32_t selectedSection,
                                                           std::int32_t selectedRow)
{
    const NSIndexPath indexPath{selectedSection, selectedRow};
    choose(source().indexAt(indexPath), indexPath, {});
}

void CustomViewController::dismissWithNoColorAndRow(std::int32_t selectedRow)
{
    choose(elementAt(selectedRow), {0, selectedRow}, {});
}

std::optional<int> CustomViewController::elementAt(std::int32_t row) const
{
    const bool exists = row >= 0 && row < _document->count();
    return exists ? std::optional(row) : std::nullopt;
}

void CustomViewController::showOptions(const ElementRecord &record, NSIndexPath indexPath)
{
    _savedIndexPath = indexPath;
    auto sheet = std::make_unique<UIActionSheet>(
        record.name, std::static_pointer_cast<CustomViewController>(shared_from_this()));
    QStringList labels = record.options->keys();
    std::ranges::stable_sort(labels, [](const QString &a, const QString &b) {
        return a.compare(b, Qt::CaseInsensitive) < 0;
    });
    for (const QString &label : std::as_const(labels))
        sheet->addButtonWithTitle(label);
    sheet->setCancelButtonIndex(sheet->addButtonWithTitle(cancelTitle));
    sheet->setTag(indexPath.row);
    UIActionSheet::showInWindow(std::move(sheet), UIWindow::keyWindow());
    _preview->noteSheet(indexPath);
}

void CustomViewController::clickedButtonAtIndex(UIActionSheet &actionSheet, int buttonIndex)
{
    const QString label = actionSheet.buttonTitleAtIndex(buttonIndex);
    if (label == cancelTitle)
        return;
    // By name, not by row: of elements that share a name, the first one gets the value, although
    // the row that was tapped shows it. As on the phone.
    if (const auto index = source().indexOfName(actionSheet.title()))
        _document->chooseOption(*index, label);
    if (CustomTableCell *cell = cellAt(_savedIndexPath))
        cell->colorLabel()->setText(label);
    _savedIndexPath = {};
}

void CustomViewController::setLocked(int index, bool locked)
{
    _document->setLocked(index, locked);
    if (CustomTableCell *cell = cellAt(source().indexPathOf(index)))
        cell->setLocked(locked);
    const QString key = _document->record(index).key;
    if (const auto error = ElementLocks::remember(_folders.theme, key, locked))
        _overlays->setNotice(tr("The lock holds until Tintloom ends; it could not be remembered.") +
                             '\n' + QString::fromStdString(error.message()));
}

bool CustomViewController::showMenuForRowAtIndexPath(NSIndexPath indexPath)
{
    if (const auto index = source().indexAt(indexPath)) {
        _menu = ActionMenu::show(_document->record(*index).name,
                                 EditorActions::forElement(*this, *index));
        _preview->noteSheet(indexPath);
    }
    return true;
}

void CustomViewController::markWindow()
{
    if (UIWindow *window = UIWindow::keyWindow())
        window->setDocumentEdited(_document->hasUnsavedChanges());
}

void CustomViewController::moreButtonTap()
{
    Actions actions = EditorActions::forTheme(*this);
    actions.push_back(_themes.openCopied());
    _menu = ActionMenu::show(tr("Theme"), std::move(actions));
}

bool CustomViewController::keyPressed(int key, Qt::KeyboardModifiers modifiers)
{
    return performShortcut(EditorActions::forTheme(*this), key, modifiers) ||
           (key == Qt::Key_V && performShortcut({_themes.openCopied()}, key, modifiers));
}

void CustomViewController::saveButtonTap()
{
    save();
}

void CustomViewController::save(const Saved &then)
{
    if (isLoading())
        return;
    if (source().status() != ElementDataSource::Status::Loaded) {
        _overlays->setNotice(tr("Nothing was saved.") + '\n' + source().problem());
        if (then)
            then(source().problem());
        return;
    }
    NSLog("SAVING THEME...");
    _overlays->setNotice({});
    const auto self = std::static_pointer_cast<CustomViewController>(shared_from_this());
    const ElementDataSource snapshot = source();
    const auto build = [self, snapshot, delegate = _delegate,
                        scale = UIScreen::mainScreen().scale()] {
        return buildTheme(snapshot, self->_folders.theme, scale, [&] {
            if (self->_fromMainView && delegate)
                delegate->setCustomTheme();
        });
    };
    _saving.run(tr("Saving theme..."), self, build,
                [this, snapshot, then](const BuiltTheme &theme) {
                    finishSave(snapshot, writeTheme(theme), then);
                });
}

void CustomViewController::finishSave(const ElementDataSource &saved, const SaveReport &report,
                                      const Saved &then)
{
    _overlays->showOutcome(report.notice(), then ? QString() : report.copyFrom(_folders.theme));
    removeLoader();
    if (report.refusal.isEmpty() && report.failures.empty())
        _document->noteSaved(saved);
    if (then)
        return then(report.notice());
    if (!report.refusal.isEmpty())
        return;
    UIAlertView::show(std::make_unique<UIAlertView>(
        "Saved",
        "Your theme has been saved. Check biteSMS for \"Tintloom\" under themes then select "
        "\"Apply Theme\".",
        std::weak_ptr<UIAlertViewDelegate>(), QStringList{"OK"}));
}

void CustomViewController::startAnew()
{
    ElementDataSource read = ElementDataSource::load(_folders.resources, _folders.theme.documents);
    if (read.status() != ElementDataSource::Status::Loaded ||
        !_document->startAnew(std::move(read)))
        return _overlays->setNotice(
            tr("The list of elements is another one now. Start Tintloom again to edit the theme."));
    _themes.showName();
}

void CustomViewController::applicationShouldBecomeActive()
{
    NSLog("%s", {"-[CustomViewController applicationShouldBecomeActive]"});
}
