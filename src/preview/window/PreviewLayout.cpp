#include "preview/window/PreviewLayout.h"

#include "preview/PreviewScene.h"

#include <algorithm>
#include <cmath>

namespace
{
constexpr double margin = 16.0;
constexpr double captionHeight = 40.0;
constexpr double switchHeight = 32.0;
constexpr double widestSwitch = 360.0;

/// The largest screens of the phone's shape, so many side by side.
QSizeF screenIn(QSizeF room, int screens)
{
    const QSizeF phone = PreviewScene::screenSize;
    const double width = (room.width() - (screens - 1) * margin) / screens;
    const double scale = std::min(width / phone.width(), room.height() / phone.height());
    // Whole points, so that both edges are sharp.
    return QSizeF(std::floor(phone.width() * scale), std::floor(phone.height() * scale))
        .expandedTo({1.0, 1.0});
}
} // namespace

PreviewLayout PreviewLayout::make(QSizeF size)
{
    PreviewLayout layout;
    const double below = switchHeight + 2.0 * margin;
    const QSizeF room(size.width() - 2.0 * margin, size.height() - captionHeight - below);
    const QSizeF pair = screenIn(room, 2);
    const QSizeF single = screenIn({room.width(), room.height() - switchHeight - margin * 0.5}, 1);
    // One screen alone must be much larger to be worth the switch.
    const bool showsBoth = pair.width() * 1.4 >= single.width();
    const QSizeF screen = showsBoth ? pair : single;
    const double width = showsBoth ? 2.0 * screen.width() + margin : screen.width();
    const double left = std::floor((size.width() - width) * 0.5);
    const double switches = showsBoth ? switchHeight : 2.0 * switchHeight + margin * 0.5;
    const double height = captionHeight + screen.height() + margin + switches + margin;
    const double top = std::max(0.0, std::floor((size.height() - height) * 0.5));

    layout.caption = {margin, top, size.width() - 2.0 * margin, captionHeight};
    layout.conversation = {{left, layout.caption.bottom()}, screen};
    layout.messageList = layout.conversation;
    if (showsBoth)
        layout.messageList.translate(screen.width() + margin, 0.0);
    const double switchWidth = std::min(widestSwitch, size.width() - 2.0 * margin);
    QRectF row(std::floor((size.width() - switchWidth) * 0.5),
               layout.conversation.bottom() + margin, switchWidth, switchHeight);
    if (!showsBoth) {
        layout.screenSwitch = row;
        row.translate(0.0, switchHeight + margin * 0.5);
    }
    layout.eyesSwitch = row;
    return layout;
}
