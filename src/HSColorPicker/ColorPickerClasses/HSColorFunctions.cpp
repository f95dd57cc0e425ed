#include "HSColorPicker/ColorPickerClasses/HSColorFunctions.h"

#include "platform/foundation/NSLog.h"

#include <QPainter>
#include <QRandomGenerator>

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace
{
// Unlike the language's own assertion, this one holds in every build: a tile without a size cannot
// be drawn, and whoever asks for one has lost track of its layout.
void require(bool holds, const char *condition)
{
    if (holds)
        return;
    NSLog(QStringLiteral("Assertion failed: %@"), {QString::fromLatin1(condition)});
    std::abort();
}

// A pattern has no components of its own, so draw it and look. Tiles are laid from the bottom left.
void getComponentsByDrawing(double (&components)[4], const QImage &tile)
{
    QImage canvas(1, 1, QImage::Format_RGBA8888_Premultiplied);
    canvas.fill(Qt::transparent);
    if (!tile.isNull()) {
        const QSizeF size = tile.deviceIndependentSize();
        QPainter painter(&canvas);
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.drawImage(QRectF(QPointF(0.0, 1.0 - size.height()), size), tile,
                          QRectF(tile.rect()));
    }
    std::transform(canvas.constBits(), canvas.constBits() + 4, components,
                   [](uchar byte) { return byte / 255.0; });
    if (components[3] > 0.0)
        std::for_each_n(components, 3, [&](double &component) { component /= components[3]; });
}

QBrush brushOf(const UIColor &color)
{
    return color.patternImage().isNull() ? QBrush(color.qColor()) : QBrush(color.patternImage());
}
} // namespace

BMPixel HSPixelFromHSV(double hue, double saturation, double brightness)
{
    const double v = brightness;
    if (saturation == 0.0)
        return {v, v, v, 1.0};
    const double h6 = hue == 1.0 ? 0.0 : hue * 6.0;
    const bool fits = std::abs(h6) < 2147483648.0; // beyond, as without a number, the last sector
    const int sector = fits ? int(h6) : 5;
    const double f = h6 - sector;
    const double p = v * (1.0 - saturation);
    const double q = v * (1.0 - saturation * f);
    const double t = v * (1.0 - saturation * (1.0 - f));
    switch (sector) {
    case 0:
        return {v, t, p, 1.0};
    case 1:
        return {q, v, p, 1.0};
    case 2:
        return {p, v, t, 1.0};
    case 3:
        return {p, q, v, 1.0};
    case 4:
        return {t, p, v, 1.0};
    default:
        return {v, p, q, 1.0};
    }
}

void HSGetComponentsForColor(double (&components)[4], const UIColor &color)
{
    if (const auto rgba = color.getRed()) {
        components[0] = rgba->red;
        components[1] = rgba->green;
        components[2] = rgba->blue;
        components[3] = rgba->alpha;
    } else if (const auto grey = color.getWhite()) {
        std::fill_n(components, 3, grey->white);
        components[3] = grey->alpha;
    } else {
        getComponentsByDrawing(components, color.patternImage());
    }
}

QImage HSUIImageWithScale(QImage image, double scale)
{
    image.setDevicePixelRatio(scale > 0.0 ? scale : 1.0);
    return image;
}

QImage HSOpacityBackgroundImage(double length, double scale, const UIColor &color)
{
    require(length > 0.0, "length > 0");
    require(scale > 0.0, "scale > 0");
    const double half = length * 0.5;
    const int pixels = BMRound<std::int32_t>(std::ceil(length * scale));
    QImage image(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    if (image.isNull())
        return image;
    image.fill(Qt::transparent);
    {
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.scale(scale, scale);
        const QBrush brush = brushOf(color);
        painter.fillRect(QRectF(0.0, 0.0, half, half), brush);
        painter.fillRect(QRectF(half, half, half, half), brush);
        painter.fillRect(QRectF(0.0, half, half, half), Qt::white);
        painter.fillRect(QRectF(half, 0.0, half, half), Qt::white);
    }
    return HSUIImageWithScale(std::move(image), scale);
}

HSRandomSource HSSystemRandomSource()
{
    return [] { return QRandomGenerator::system()->generate(); };
}

UIColor HSRandomColorOpaque(bool isOpaque, const HSRandomSource &random)
{
    // 1/256 for the 7-bit numbers too, as on the phone: they fill the upper half of the range.
    const double hue = (random() & 255) / 256.0;
    const double saturation = (random() & 127) / 256.0 + 0.5;
    const double brightness = (random() & 127) / 256.0 + 0.5;
    const double alpha = isOpaque ? 1.0 : (random() & 127) / 256.0 + 0.5;
    return UIColor::colorWithHue(hue, saturation, brightness, alpha);
}
