#include "catalogue/window/CataloguePage.h"

void CataloguePage::place(const CatalogueLayout &layout)
{
    _hiddenView->setVisible(!layout.hiddenView.isEmpty());
    _hiddenView->setFrame(layout.hiddenView);
    _appVersion->setFrame(layout.appVersion);
    _tableView->setFrame(layout.tableView);
}

void CataloguePage::setListOpacity(double opacity)
{
    _hiddenView->setOpacity(opacity);
    _tableView->setOpacity(opacity);
}

void CataloguePage::itemChange(ItemChange change, const ItemChangeData &data)
{
    ScreenPage::itemChange(change, data);
    if (change == ItemSceneChange || change == ItemDevicePixelRatioHasChanged)
        emit devicePixelRatioChanged();
}
