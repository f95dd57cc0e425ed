#include "color/Compositing.h"

QRgb composited(QRgb over, QRgb ground)
{
    const int alpha = qAlpha(over);
    const auto mixed = [alpha](int upper, int lower) {
        return (upper * alpha + lower * (255 - alpha) + 127) / 255;
    };
    return qRgb(mixed(qRed(over), qRed(ground)), mixed(qGreen(over), qGreen(ground)),
                mixed(qBlue(over), qBlue(ground)));
}
