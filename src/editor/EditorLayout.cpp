#include "editor/EditorLayout.h"

EditorLayout EditorLayout::make(QSizeF size, double navigationBarHeight, bool fromMainView)
{
    constexpr double statusHeight = 20.0;
    constexpr double barHeight = 50.0;
    constexpr QSizeF loader(150.0, 130.0);
    const double w = size.width();
    const double h = size.height();

    EditorLayout layout;
    layout.bgView = {0.0, 0.0, w, h};
    layout.bottomView = {0.0, h - barHeight, w, barHeight};
    layout.saveButton = {w * 0.5 * 0.5, 5.0, 180.0, 40.0};
    layout.moreButton = {layout.saveButton.right() + 4.0, 5.0, 52.0, 40.0};
    layout.previewButton = {4.0, 5.0, 72.0, 40.0};
    layout.loadingView = {{(w - loader.width()) * 0.5, (h - loader.height()) * 0.5}, loader};
    if (fromMainView) {
        const double top = navigationBarHeight + statusHeight;
        layout.tableView = {0.0, top, w, h - top};
        layout.loadingView.translate(0.0, -navigationBarHeight);
    } else {
        layout.tableView = layout.bgView;
        layout.topView = {0.0, 0.0, w, statusHeight};
        layout.hiddenView = {0.0, statusHeight, w, statusHeight};
        layout.appVersion = {0.0, 0.0, w, statusHeight};
    }
    return layout;
}
