// The root of the catalogue's QML file.
#pragma once

#include "catalogue/window/CatalogueLayout.h"
#include "platform/UIView.h"
#include "views/ScreenPage.h"

class CataloguePage : public ScreenPage
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(UIView *hiddenView MEMBER _hiddenView FINAL REQUIRED)
    Q_PROPERTY(UIView *appVersion MEMBER _appVersion FINAL REQUIRED)
    Q_PROPERTY(UIView *tableView MEMBER _tableView FINAL REQUIRED)

public:
    using ScreenPage::ScreenPage;

    void place(const CatalogueLayout &layout);
    /// Of everything that the list consists of.
    void setListOpacity(double opacity);

signals:
    /// The page has come into a window, or to a screen of another density.
    void devicePixelRatioChanged();

protected:
    void itemChange(ItemChange change, const ItemChangeData &data) override;

private:
    UIView *_hiddenView = nullptr;
    UIView *_appVersion = nullptr;
    UIView *_tableView = nullptr;
};
