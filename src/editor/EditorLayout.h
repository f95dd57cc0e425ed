// Where everything on the editor's screen stands, in points.
#pragma once

#include <QRectF>

struct EditorLayout {
    QRectF bgView;
    QRectF tableView;
    QRectF hiddenView; // empty when opened from the catalogue, like appVersion and topView
    QRectF appVersion; // inside hiddenView
    QRectF topView;
    QRectF bottomView;
    QRectF saveButton; // inside bottomView, like the next two
    QRectF moreButton;
    QRectF previewButton;
    QRectF loadingView;

    /// Frames for a root view of that size. From the catalogue, the screen begins below the
    /// 20-point status strip and the navigation bar.
    static EditorLayout make(QSizeF size, double navigationBarHeight, bool fromMainView);
    bool operator==(const EditorLayout &) const = default;
};
