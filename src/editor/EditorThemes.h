// What ties the editor to the user's own themes: its actions for them, and the window's title,
// which says which one is edited.
#pragma once

#include "library/window/ThemeDesk.h"
#include "views/Action.h"

class CustomViewController;
struct EditorFolders;

class EditorThemes : public QObject
{
    Q_OBJECT

public:
    EditorThemes(CustomViewController &editor, ScreenWork &busy, const EditorFolders &folders);

    /// Entries of "More", with their keys.
    Actions actions();
    /// The catalogue.
    Action themes();
    /// What the clipboard holds; asked of it only where it is to be known.
    Action openCopied();

    bool takesDrop(const QMimeData &data) const;
    bool drop(const QMimeData &data) { return isFree() && _desk.open(data); }
    ThemeDesk &desk() { return _desk; }

    /// Says in the window's title which theme is edited.
    void showName();

signals:
    void themesTapped();
    /// The kept theme is to be edited here.
    void editWanted(const QString &name);

private:
    bool isFree() const;

    CustomViewController &_editor;
    const QString _preferences;
    ThemeDesk _desk;
};
