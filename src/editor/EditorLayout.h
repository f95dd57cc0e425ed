// Where everything on the editor's screen stands, in points.
#pragma once

#include <QObject>
#include <QRectF>
#include <QtQml/qqmlregistration.h>

struct EditorLayout {
    Q_GADGET
    QML_VALUE_TYPE(editorLayout)
    Q_PROPERTY(QRectF bgView MEMBER bgView CONSTANT FINAL)
    Q_PROPERTY(QRectF tableView MEMBER tableView CONSTANT FINAL)
    Q_PROPERTY(QRectF hiddenView MEMBER hiddenView CONSTANT FINAL)
    Q_PROPERTY(QRectF appVersion MEMBER appVersion CONSTANT FINAL)
    Q_PROPERTY(QRectF topView MEMBER topView CONSTANT FINAL)
    Q_PROPERTY(QRectF bottomView MEMBER bottomView CONSTANT FINAL)
    Q_PROPERTY(QRectF saveButton MEMBER saveButton CONSTANT FINAL)
    Q_PROPERTY(QRectF moreButton MEMBER moreButton CONSTANT FINAL)
    Q_PROPERTY(QRectF loadingView MEMBER loadingView CONSTANT FINAL)

public:
    QRectF bgView;
    QRectF tableView;
    QRectF hiddenView; // empty when opened from the catalogue, like appVersion and topView
    QRectF appVersion; // inside hiddenView
    QRectF topView;
    QRectF bottomView;
    QRectF saveButton; // inside bottomView, like moreButton
    QRectF moreButton;
    QRectF loadingView;

    /// Frames for a root view of that size. From the catalogue, the screen begins below the
    /// 20-point status strip and the navigation bar.
    static EditorLayout make(QSizeF size, double navigationBarHeight, bool fromMainView);
    bool operator==(const EditorLayout &) const = default;
};
