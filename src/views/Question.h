// A question with two answers, as an alert: to leave all as it is, or to go on.
#pragma once

#include "platform/UIAlertView.h"

#include <functional>
#include <memory>

class Question final : public UIAlertViewDelegate
{
public:
    /// Asks on the key window. The question must live until it is answered: whoever asks keeps what
    /// this returns until the next time. Escape leaves all as it is.
    [[nodiscard]] static std::shared_ptr<Question> ask(const QString &title, const QString &message,
                                                       const QString &verb,
                                                       std::function<void()> goOn);

    void clickedButtonAtIndex(UIAlertView &alertView, int buttonIndex) override;

private:
    std::function<void()> _goOn;
};
