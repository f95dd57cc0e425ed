// The root of the QML file that draws a stack of pages.
#pragma once

#include "platform/UIPage.h"

class UINavigationPage : public UIPage
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QQuickItem *pages MEMBER pages FINAL REQUIRED)

public:
    using UIPage::UIPage;

    QQuickItem *pages = nullptr; ///< what the pages lie in, below the bar
};
