// Something that a person can do: the entry of a sheet, and what a key does.
//
// A screen has one list of them, made anew whenever it is asked for, so that titles and what
// applies are those of the moment. Whatever shows them (a sheet, the keyboard, a bar) shows that
// list, and nothing is wired twice.
#pragma once

#include "platform/UIActionSheet.h"

#include <QKeySequence>
#include <QList>
#include <QString>

#include <functional>
#include <memory>
#include <vector>

struct Action {
    QString title;
    std::function<void()> perform;
    /// One that does not apply is left out, and its keys do nothing.
    bool applies = true;
    /// Any of these performs it.
    QList<QKeySequence> shortcuts = {};
};
using Actions = std::vector<Action>;

/// Performs the action that applies and has that key (Qt::Key) as a shortcut. False when there is
/// none.
bool performShortcut(const Actions &actions, int key, Qt::KeyboardModifiers modifiers);

/// A sheet of the actions that apply, and "Cancel" below them.
class ActionMenu final : public UIActionSheetDelegate
{
public:
    /// Shows them on the key window. The menu must live until one is chosen: whoever asks keeps
    /// what this returns until the next time.
    [[nodiscard]] static std::shared_ptr<ActionMenu> show(const QString &title, Actions actions);

    void clickedButtonAtIndex(UIActionSheet &actionSheet, int buttonIndex) override;

private:
    Actions _actions; // in the order of the buttons
};
