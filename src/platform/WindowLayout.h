// How a window is shared out between the stage, on which the screens stand, and a pane beside it;
// in points.
#pragma once

#include <QRectF>

#include <optional>

struct WindowLayout {
    static constexpr double narrowestStage = 320.0;
    static constexpr double widestStage = 420.0;
    static constexpr double narrowestPane = 320.0;

    QRectF stage;
    QRectF pane; // empty where there is none

    /// The stage grows with the window up to its widest, then the pane takes the rest. A stage
    /// whose width was asked for has that, as long as the window has room for it. Without a pane it
    /// stands in the middle of what it leaves.
    static WindowLayout make(QSizeF window, bool wantsPane, std::optional<double> stageWidth);
};
