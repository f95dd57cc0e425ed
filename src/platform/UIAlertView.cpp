#include "platform/UIAlertView.h"

#include "platform/UIWindow.h"

UIAlertView::UIAlertView(const QString &title, const QString &message,
                         std::weak_ptr<UIAlertViewDelegate> delegate,
                         const QStringList &buttonTitles)
    : _title(title), _message(message), _delegate(std::move(delegate)), _buttonTitles(buttonTitles)
{
}

void UIAlertView::show(std::unique_ptr<UIAlertView> alertView)
{
    if (UIWindow *window = UIWindow::keyWindow())
        window->showAlert(std::move(alertView));
}

void UIAlertView::click(int buttonIndex)
{
    if (buttonIndex < 0 || buttonIndex >= _buttonTitles.size())
        return;
    emit dismissed();
    if (const auto delegate = _delegate.lock())
        delegate->clickedButtonAtIndex(*this, buttonIndex);
}
