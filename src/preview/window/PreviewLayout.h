// Where everything in a preview stands, in points of its pane or page.
#pragma once

#include <QRectF>

struct PreviewLayout {
    QRectF caption;
    /// Both screens beside each other where there is room; else in the same place, and one of them
    /// is shown.
    QRectF conversation;
    QRectF messageList;
    QRectF screenSwitch; // empty where both are shown
    QRectF eyesSwitch;

    static PreviewLayout make(QSizeF size);
    bool showsBoth() const { return screenSwitch.isEmpty(); }
    bool operator==(const PreviewLayout &) const = default;
};
