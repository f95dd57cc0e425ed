// The root of the QML file of the page that lists what is hard to see.
#pragma once

#include "platform/UIPage.h"
#include "platform/UITableView.h"

class CheckPage : public UIPage
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(UITableView *table MEMBER table FINAL REQUIRED)

public:
    using UIPage::UIPage;

    UITableView *table = nullptr;
};
