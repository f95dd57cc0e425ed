#include "editor/EditorPreview.h"

#include "editor/CustomViewController.h"
#include "platform/UIWindow.h"
#include "preview/window/PreviewController.h"

EditorPreview::EditorPreview(CustomViewController &editor) : QObject(&editor), _editor(editor)
{
}

void EditorPreview::setModel(PreviewModel *model)
{
    _model = model;
}

void EditorPreview::viewDidLoad()
{
    if (!_model)
        return;
    QObject *const watch = _watch.get();
    connect(_editor.tableView(), &UITableView::focusedRowChanged, watch,
            [this] { updateAttention(); });
    connect(&_editor, &CustomViewController::chooserOpenChanged, watch, [this] {
        updateAttention();
        updateInteractive();
    });
    connect(_editor.overlays(), &ScreenOverlays::loadingChanged, watch,
            [this] { updateInteractive(); });
}

void EditorPreview::viewDidAppear()
{
    if (!_model)
        return;
    _model->follow(&_editor.document());
    connect(_model, &PreviewModel::chosen, this, &EditorPreview::open, Qt::UniqueConnection);
    if (UIWindow *window = UIWindow::keyWindow())
        connect(window, &UIWindow::paneChanged, this, &EditorPreview::offeredChanged,
                Qt::UniqueConnection);
    if (const Action themes = _editor.themes()->themes(); themes.applies)
        _model->setTool(themes.title, themes.perform);
    emit offeredChanged();
    updateAttention();
    updateInteractive();
}

void EditorPreview::viewWillDisappear()
{
    if (!_model)
        return;
    _model->disconnect(this);
    _model->setTool({}, {});
    _model->setAttention({});
}

void EditorPreview::updateAttention()
{
    const ColorPickerViewController *chooser = _editor.colorPickerView();
    const NSIndexPath row = chooser
                                ? NSIndexPath{chooser->selectedSection(), chooser->selectedRow()}
                            : _sheetRow.isValid() ? _sheetRow
                                                  : _editor.tableView()->focusedRow();
    const auto index = _editor.source().indexAt(row);
    _model->setAttention(index ? _editor.document().record(*index).key : QString());
}

void EditorPreview::noteSheet(NSIndexPath row)
{
    const UIWindow *window = UIWindow::keyWindow();
    if (!_model || !window || !window->actionSheet())
        return;
    _sheetRow = row;
    updateAttention();
    connect(window->actionSheet(), &QObject::destroyed, _watch.get(), [this] {
        _sheetRow = {};
        updateAttention();
    });
}

void EditorPreview::updateInteractive()
{
    _model->setInteractive(!_editor.isChooserOpen() && !_editor.isLoading());
}

bool EditorPreview::isOffered() const
{
    const UIWindow *window = UIWindow::keyWindow();
    return _model && window && !window->hasPane();
}

void EditorPreview::showPage()
{
    if (!isOffered() || _editor.isLoading())
        return;
    PreviewController::presentPage(*_model);
}

void EditorPreview::open(const QString &key)
{
    const auto index = _editor.source().shownIndexOfKey(key);
    const NSIndexPath row = index ? _editor.source().indexPathOf(*index) : NSIndexPath();
    const UIViewController *const page = UIWindow::keyWindow()->presentedViewController();
    if (!row.isValid() || (page && !page->allowsBack()))
        return;
    if (page)
        PreviewController::dismissPage();
    _editor.tableView()->forceActiveFocus(); // keys, too, go where the choice is made
    _editor.tableView()->scrollToRow(row);
    _editor.tableView()->layoutIfNeeded();
    _editor.didSelectRowAtIndexPath(row);
}
