// The root of the QML file of a page that asks for a name.
#pragma once

#include "platform/UIPage.h"
#include "platform/UITextField.h"

class NamePage : public UIPage
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(UITextField *field MEMBER field FINAL REQUIRED)

public:
    using UIPage::UIPage;

    UITextField *field = nullptr;
};
