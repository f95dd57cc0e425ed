#include "views/ColorSwatch.h"

#include <QPainter>

QImage colorSwatch(QRgb color, std::optional<QRgb> on, double scale)
{
    constexpr QRectF frame(0.5, 0.5, colorSwatchSide - 1.0, colorSwatchSide - 1.0);
    constexpr double inset = colorSwatchSide / 4.0;
    QImage picture((QSizeF(colorSwatchSide, colorSwatchSide) * scale).toSize(),
                   QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(scale, scale);
    const auto fill = [&](const QRectF &place, const QBrush &brush) {
        painter.setBrush(brush);
        painter.drawRoundedRect(place, 6.0, 6.0);
    };
    painter.setPen(Qt::NoPen);
    if (qAlpha(color) < 255) {
        fill(frame, Qt::white);
        fill(frame, QBrush(Qt::lightGray, Qt::Dense4Pattern));
    }
    painter.setPen(QColor(0, 0, 0, 0x60));
    fill(frame, QColor::fromRgba(color));
    painter.setPen(Qt::NoPen);
    if (on)
        fill(frame.adjusted(inset, inset, -inset, -inset), QColor::fromRgba(*on));
    return picture;
}
