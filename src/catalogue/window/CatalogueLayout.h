// Where everything on the catalogue's screen stands, in points.
#pragma once

#include <QRectF>

struct CatalogueLayout {
    QRectF hiddenView; // empty where it lies over the editor, as appVersion
    QRectF appVersion; // inside hiddenView
    QRectF tableView;
    QRectF loadingView;

    /// Frames for a root view of that size, below a navigation bar of that height, or none.
    static CatalogueLayout make(QSizeF size, double navigationBarHeight = 0.0);
    bool operator==(const CatalogueLayout &) const = default;
};
