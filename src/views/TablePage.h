// The root of the QML file of a page that covers the stage with a table.
#pragma once

#include "platform/UIPage.h"
#include "platform/UITableView.h"

class TablePage : public UIPage
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(UITableView *table MEMBER table FINAL REQUIRED)

public:
    using UIPage::UIPage;

    UITableView *table = nullptr;
};
