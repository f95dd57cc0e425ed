// The root of the catalogue's QML file.
#pragma once

#include "platform/UIView.h"
#include "views/ScreenPage.h"

class CataloguePage : public ScreenPage
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(UIView *hiddenView MEMBER hiddenView FINAL REQUIRED)
    Q_PROPERTY(UIView *tableView MEMBER tableView FINAL REQUIRED)

public:
    using ScreenPage::ScreenPage;

    UIView *hiddenView = nullptr; ///< the strip above the table, with the version
    UIView *tableView = nullptr;  ///< what the table lies in
};
