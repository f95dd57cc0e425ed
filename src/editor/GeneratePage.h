// The root of the QML file of the page that makes a theme from one colour.
#pragma once

#include "platform/UIPage.h"
#include "platform/UITextField.h"

class GeneratePage : public UIPage
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(UITextField *colorField MEMBER colorField FINAL REQUIRED)

public:
    using UIPage::UIPage;

    UITextField *colorField = nullptr;
};
