#include "catalogue/window/CatalogueLayout.h"

CatalogueLayout CatalogueLayout::make(QSizeF size, double navigationBarHeight)
{
    constexpr double status = 20.0;
    constexpr QSizeF loader(150.0, 130.0);
    const double w = size.width();
    const double h = size.height();

    CatalogueLayout layout;
    layout.loadingView = {{(w - loader.width()) * 0.5, (h - loader.height()) * 0.5}, loader};
    if (navigationBarHeight > 0.0) {
        const double top = status + navigationBarHeight;
        layout.tableView = {0.0, top, w, h - top};
    } else {
        layout.appVersion = {0.0, 0.0, w, status};
        layout.hiddenView = {0.0, status, w, status};
        layout.tableView = {0.0, status, w, h}; // its end lies below the screen's, as on the phone
    }
    return layout;
}
