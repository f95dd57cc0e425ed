#include "editor/EditorThemes.h"

#include "editor/CustomViewController.h"
#include "library/EditedTheme.h"
#include "platform/UIWindow.h"

#include <QMetaMethod>

EditorThemes::EditorThemes(CustomViewController &editor, ScreenWork &busy,
                           const EditorFolders &folders)
    : _editor(editor),
      _preferences(folders.theme.preferences()),
      _desk(editor, *editor.overlays(), busy, folders.resources, folders.theme)
{
    connect(&_desk, &ThemeDesk::kept, this, &EditorThemes::showName);
    connect(&_desk, &ThemeDesk::editWanted, this, &EditorThemes::editWanted);
}

bool EditorThemes::isFree() const
{
    return _desk.isFree() && !_editor.isChooserOpen();
}

bool EditorThemes::takesDrop(const QMimeData &data) const
{
    return isFree() && ThemeDesk::canOpen(data);
}

Action EditorThemes::themes()
{
    static const QMetaMethod tapped = QMetaMethod::fromSignal(&EditorThemes::themesTapped);
    return {tr("Themes\u2026"),
            [this] { emit themesTapped(); },
            isFree() && isSignalConnected(tapped),
            {Qt::CTRL | Qt::Key_T}};
}

Action EditorThemes::openCopied()
{
    return {tr("Open Copied Theme"),
            [this] { _desk.openCopied(); },
            isFree() && ThemeDesk::canOpenCopied(),
            {Qt::CTRL | Qt::Key_V}};
}

Actions EditorThemes::actions()
{
    const bool hasTheme =
        isFree() && _editor.source().status() == ElementDataSource::Status::Loaded;
    return {
        themes(),
        {tr("Keep Theme\u2026"),
         [this] { _desk.keep(_editor.source()); },
         hasTheme,
         {Qt::CTRL | Qt::Key_K}},
        {tr("Open\u2026"), [this] { _desk.chooseFile(); }, isFree(), {Qt::CTRL | Qt::Key_O}},
        {tr("Share\u2026"), [this] { _desk.share(_desk.packageOf(_editor.source())); }, hasTheme},
        {tr("Export\u2026"),
         [this] {
             _desk.exportTheme(_desk.packageOf(_editor.source()),
                               EditedTheme(_preferences).name().value_or(tr("Tintloom")));
         },
         hasTheme},
    };
}

void EditorThemes::showName()
{
    if (UIWindow *window = UIWindow::keyWindow())
        window->setDocumentName(EditedTheme(_preferences).name().value_or(QString()));
}
