// The root of the QML file of a screen that has a table and may be covered.
#pragma once

#include "platform/UIPage.h"
#include "platform/UITableView.h"

class ScreenPage : public UIPage
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QQuickItem *content MEMBER content FINAL REQUIRED)
    Q_PROPERTY(UITableView *table MEMBER table FINAL REQUIRED)

public:
    using UIPage::UIPage;

    QQuickItem *content = nullptr; ///< all that takes no input while the screen is covered
    UITableView *table = nullptr;
};
