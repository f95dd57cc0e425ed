// Where everything on the catalogue's screen stands, in points.
#pragma once

#include <QRectF>

struct CatalogueLayout {
    QRectF hiddenView;
    QRectF appVersion; // inside hiddenView
    QRectF tableView;
    QRectF loadingView;

    /// Frames for a root view of that size.
    static CatalogueLayout make(QSizeF size);
    bool operator==(const CatalogueLayout &) const = default;
};
