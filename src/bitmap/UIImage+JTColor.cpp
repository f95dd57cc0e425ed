#include "bitmap/UIImage+JTColor.h"

#include <algorithm>
#include <cmath>

namespace
{
QRgb pixel(const UIColor &color)
{
    const auto [red, green, blue, alpha] = color.components();
    const auto byte = [](double component) { return int(std::lround(component * 255.0)); };
    return qRgba(byte(red), byte(green), byte(blue), byte(alpha));
}

/// Whole pixels that a length takes, so that 50 x 1.1 is 55 although the product is a trace
/// above; 0 when no image can have that side.
int pixels(double length)
{
    const double whole = std::ceil(length - 1e-6);
    return whole >= 1.0 && whole <= 65535.0 ? int(whole) : 0;
}
} // namespace

QImage imageWithColor(const UIColor &color, double scale)
{
    return imageWithColorRect(color, QRectF(0.0, 0.0, 1.0, 1.0), scale);
}

QImage imageWithColorRect(const UIColor &color, const QRectF &rect, double scale)
{
    const QSize size(pixels(rect.width() * scale), pixels(rect.height() * scale));
    if (size.isEmpty())
        return {};
    // Not premultiplied: the straight colour must survive any alpha, because JPEG keeps only that.
    QImage image(size, QImage::Format_ARGB32);
    if (image.isNull())
        return {};
    image.setDevicePixelRatio(scale);
    const auto edge = [scale](double point, int end) {
        return int(std::clamp(std::round(point * scale), 0.0, double(end)));
    };
    const int left = edge(rect.left(), size.width());
    const int right = edge(rect.right(), size.width());
    const int top = edge(rect.top(), size.height());
    const int bottom = edge(rect.bottom(), size.height());
    if (left == 0 && top == 0 && right == size.width() && bottom == size.height()) {
        image.fill(pixel(color));
        return image;
    }
    image.fill(0U);
    for (int y = top; y < bottom; ++y) {
        auto *line = reinterpret_cast<QRgb *>(image.scanLine(y));
        std::fill(line + left, line + std::max(left, right), pixel(color));
    }
    return image;
}
