#include "views/Question.h"

std::shared_ptr<Question> Question::ask(const QString &title, const QString &message,
                                        const QString &verb, std::function<void()> goOn)
{
    const auto question = std::make_shared<Question>();
    question->_goOn = std::move(goOn);
    UIAlertView::show(std::make_unique<UIAlertView>(title, message, question,
                                                    QStringList{QStringLiteral("Cancel"), verb}));
    return question;
}

void Question::clickedButtonAtIndex(UIAlertView &, int buttonIndex)
{
    const auto goOn = std::move(_goOn); // it may ask again
    if (buttonIndex == 1)
        goOn();
}
