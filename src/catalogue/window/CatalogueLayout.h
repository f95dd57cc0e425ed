// Where everything on the catalogue's screen stands, in points.
#pragma once

#include <QObject>
#include <QRectF>
#include <QtQml/qqmlregistration.h>

struct CatalogueLayout {
    Q_GADGET
    QML_VALUE_TYPE(catalogueLayout)
    Q_PROPERTY(QRectF hiddenView MEMBER hiddenView CONSTANT FINAL)
    Q_PROPERTY(QRectF appVersion MEMBER appVersion CONSTANT FINAL)
    Q_PROPERTY(QRectF tableView MEMBER tableView CONSTANT FINAL)

public:
    QRectF hiddenView;
    QRectF appVersion; // inside hiddenView
    QRectF tableView;
    QRectF loadingView;

    /// Frames for a root view of that size.
    static CatalogueLayout make(QSizeF size);
    bool operator==(const CatalogueLayout &) const = default;
};
