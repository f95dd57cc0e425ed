#include "catalogue/window/CataloguePage.h"

void CataloguePage::place(const CatalogueLayout &layout)
{
    _hiddenView->setFrame(layout.hiddenView);
    _appVersion->setFrame(layout.appVersion);
    _tableView->setFrame(layout.tableView);
}

void CataloguePage::setListOpacity(double opacity)
{
    _hiddenView->setOpacity(opacity);
    _tableView->setOpacity(opacity);
}
