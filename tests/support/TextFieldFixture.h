// A text field in an active window, asking a delegate that remembers.
#pragma once

#include "platform/QMLViews.h"
#include "platform/UITextField.h"
#include "support/WindowFixture.h"

class TextFieldFixture : public OwnWindowFixture
{
protected:
    struct Delegate : UITextFieldDelegate {
        bool shouldChangeCharactersInRange(UITextField &field, NSRange range,
                                           const QString &replacement) override
        {
            asked += QString("%1+%2 %3").arg(range.location).arg(range.length).arg(replacement) +
                     " in " + field.text();
            return allows;
        }
        bool textFieldShouldReturn(UITextField &field) override
        {
            field.resignFirstResponder();
            return false;
        }
        void textFieldDidEndEditing(UITextField &) override { ++ends; }

        QStringList asked; // "where+length replacement in text"
        bool allows = true;
        int ends = 0;
    };

    void SetUp() override
    {
        QMLViews::prepareEngine(engine);
        view.reset(QMLViews::create(engine, "platform/TextFieldView.qml"));
        view->setParentItem(window().contentItem());
        field().setFrame({0, 0, 300, 40});
        field().setDelegate(delegate);
        show({300, 200});
        field().becomeFirstResponder();
    }

    UITextField &field() { return *qobject_cast<UITextField *>(view.get()); }

    QQmlEngine engine;
    std::shared_ptr<Delegate> delegate = std::make_shared<Delegate>();
    std::unique_ptr<QQuickItem> view;
};
