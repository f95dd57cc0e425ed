#include "color/ColorVision.h"

#include "color/LinearLight.h"

namespace
{
struct Light {
    float red, green, blue;
};

using Matrix = Light[3]; // rows

// Protan and deutan: F. Vienot, H. Brettel, J. D. Mollon, "Digital video colourmaps for checking
// the legibility of displays by dichromats" (1999), carried over to linear sRGB. One plane holds
// all that such eyes can tell apart.
constexpr Matrix protan = {
    {0.11238F, 0.88762F, 0.0F}, {0.11238F, 0.88762F, 0.0F}, {0.00401F, -0.00401F, 1.0F}};
constexpr Matrix deutan = {
    {0.29275F, 0.70725F, 0.0F}, {0.29275F, 0.70725F, 0.0F}, {-0.02234F, 0.02234F, 1.0F}};

// Tritan: H. Brettel, F. Vienot, J. D. Mollon, "Computerized simulation of color appearance for
// dichromats" (1997). Two half planes, which meet in the greys.
constexpr Light tritanSide = {0.03901F, -0.02788F, -0.01113F};
constexpr Matrix tritanAbove = {{1.01277F, 0.13548F, -0.14826F},
                                {-0.01243F, 0.86812F, 0.14431F},
                                {0.07589F, 0.80500F, 0.11911F}};
constexpr Matrix tritanBelow = {{0.93678F, 0.18979F, -0.12657F},
                                {0.06154F, 0.81526F, 0.12320F},
                                {-0.37562F, 1.12767F, 0.24796F}};

// The luminance of ITU-R BT.709, whose primaries sRGB has.
constexpr Light luminance = {0.2126F, 0.7152F, 0.0722F};
constexpr Matrix grey = {luminance, luminance, luminance};

float product(const Light &row, const Light &light)
{
    return row.red * light.red + row.green * light.green + row.blue * light.blue;
}

const Matrix &matrixFor(Eyes eyes, const Light &light)
{
    switch (eyes) {
    case Eyes::Protan:
        return protan;
    case Eyes::Deutan:
        return deutan;
    case Eyes::Tritan:
        return product(tritanSide, light) >= 0.0F ? tritanAbove : tritanBelow;
    default:
        return grey;
    }
}
} // namespace

QRgb seenBy(Eyes eyes, QRgb color)
{
    if (eyes == Eyes::Normal)
        return color;
    const Light light{linearFromSrgb(quint8(qRed(color))), linearFromSrgb(quint8(qGreen(color))),
                      linearFromSrgb(quint8(qBlue(color)))};
    const Matrix &matrix = matrixFor(eyes, light);
    return qRgba(srgbFromLinear(product(matrix[0], light)),
                 srgbFromLinear(product(matrix[1], light)),
                 srgbFromLinear(product(matrix[2], light)), qAlpha(color));
}

QImage seenBy(Eyes eyes, const QImage &picture)
{
    if (eyes == Eyes::Normal || picture.isNull())
        return picture;
    QImage seen = picture.convertToFormat(picture.hasAlphaChannel() ? QImage::Format_ARGB32
                                                                    : QImage::Format_RGB32);
    // Drawn pictures are mostly flat: a run of one colour is computed once.
    QRgb last = 0;
    QRgb lastSeen = seenBy(eyes, last);
    for (int y = 0; y < seen.height(); ++y) {
        auto *pixel = reinterpret_cast<QRgb *>(seen.scanLine(y));
        for (auto *const end = pixel + seen.width(); pixel != end; ++pixel) {
            if (*pixel != last) {
                last = *pixel;
                lastSeen = seenBy(eyes, last);
            }
            *pixel = lastSeen;
        }
    }
    return seen;
}
