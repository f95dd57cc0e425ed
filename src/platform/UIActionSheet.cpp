#include "platform/UIActionSheet.h"

#include "platform/UIWindow.h"

UIActionSheet::UIActionSheet(const QString &title, std::weak_ptr<UIActionSheetDelegate> delegate)
    : _title(title), _delegate(std::move(delegate))
{
}

int UIActionSheet::addButtonWithTitle(const QString &title)
{
    _buttonTitles.append(title);
    return int(_buttonTitles.size()) - 1;
}

void UIActionSheet::showInWindow(std::unique_ptr<UIActionSheet> actionSheet, UIWindow *window)
{
    if (window)
        window->showActionSheet(std::move(actionSheet));
}

void UIActionSheet::click(int buttonIndex)
{
    if (buttonIndex < 0 || buttonIndex >= _buttonTitles.size())
        return;
    emit dismissed();
    if (const auto delegate = _delegate.lock())
        delegate->clickedButtonAtIndex(*this, buttonIndex);
}
