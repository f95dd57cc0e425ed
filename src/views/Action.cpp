#include "views/Action.h"

#include "platform/UIWindow.h"

#include <algorithm>

bool performShortcut(const Actions &actions, int key, Qt::KeyboardModifiers modifiers)
{
    const QKeySequence pressed(int(modifiers & ~Qt::KeypadModifier) | key);
    const auto action = std::ranges::find_if(actions, [&](const Action &candidate) {
        return candidate.applies && candidate.shortcuts.contains(pressed);
    });
    if (action == actions.end())
        return false;
    action->perform();
    return true;
}

std::shared_ptr<ActionMenu> ActionMenu::show(const QString &title, Actions actions)
{
    const auto menu = std::make_shared<ActionMenu>();
    auto sheet = std::make_unique<UIActionSheet>(title, menu);
    for (Action &action : actions) {
        if (!action.applies)
            continue;
        sheet->addButtonWithTitle(action.title);
        menu->_actions.push_back(std::move(action));
    }
    sheet->setCancelButtonIndex(sheet->addButtonWithTitle("Cancel"));
    UIActionSheet::showInWindow(std::move(sheet), UIWindow::keyWindow());
    return menu;
}

void ActionMenu::clickedButtonAtIndex(UIActionSheet &, int buttonIndex)
{
    // Taken out first: what it does may show another sheet in this one's place.
    const auto actions = std::move(_actions);
    if (std::size_t(buttonIndex) < actions.size())
        actions[std::size_t(buttonIndex)].perform();
}
