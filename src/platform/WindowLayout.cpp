#include "platform/WindowLayout.h"

#include <algorithm>
#include <cmath>

WindowLayout WindowLayout::make(QSizeF window, bool wantsPane, std::optional<double> stageWidth)
{
    const double w = window.width();
    const double h = window.height();
    const double besidePane =
        stageWidth.value_or(std::clamp(std::floor(w * 0.5), narrowestStage, widestStage));
    WindowLayout layout;
    if (wantsPane && w - std::max(besidePane, narrowestStage) >= narrowestPane) {
        layout.stage = {0.0, 0.0, besidePane, h};
        layout.pane = {besidePane, 0.0, w - besidePane, h};
        return layout;
    }
    const double alone = std::min(w, std::max(widestStage, stageWidth.value_or(0.0)));
    layout.stage = {std::floor((w - alone) * 0.5), 0.0, alone, h};
    return layout;
}
