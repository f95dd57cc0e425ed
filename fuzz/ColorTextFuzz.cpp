// Colour text, read leniently and strictly. The bytes are UTF-8, or UTF-16 after a byte 0xFE.
#include "fuzz/FuzzTargets.h"
#include "theme/ColorText.h"

#include <QRegularExpression>

#include <cmath>

namespace
{
QString textFrom(const QByteArray &bytes)
{
    if (!bytes.startsWith('\xFE'))
        return QString::fromUtf8(bytes);
    QString text;
    for (qsizetype i = 2; i < bytes.size(); i += 2)
        text += QChar(uchar(bytes[i - 1]) << 8 | uchar(bytes[i]));
    return text;
}

/// The component of a byte, or of the next lower one where single precision falls short of it.
bool isByteOrJustBelow(double component, const QString &hexText, qsizetype position)
{
    const int read = int(std::lround(component * 255.0));
    const int written = QStringView(hexText).sliced(position, 2).toInt(nullptr, 16);
    return component >= 0.0 && component <= 1.0 && (written == read || written == read - 1);
}
} // namespace

void Fuzz::colorText(const QByteArray &bytes)
{
    static const QRegularExpression whole(QStringLiteral("\\A#[0-9A-F]{8}\\z"));
    QString text = textFrom(bytes);
    const UIColor color = colorFromHexString(text);
    const QString written = hexStringForColor(color);
    require(whole.match(written).hasMatch(), "a colour is written as eight digits");
    const auto [red, green, blue, alpha] = color.components();
    require(isByteOrJustBelow(red, written, 1) && isByteOrJustBelow(green, written, 3) &&
                isByteOrJustBelow(blue, written, 5) && isByteOrJustBelow(alpha, written, 7),
            "what is written is what was read");
    const double brightness = brightnessFromColor(color);
    require(brightness >= 0.0 && brightness <= 1.0 + 1e-9, "brightness is a part of one");

    if (const auto normalized = normalizedColorText(text)) {
        require(whole.match(*normalized).hasMatch(), "typed text is spelled out");
        require(normalizedColorText(*normalized) == normalized, "spelling out ends");
        require(hexStringForColor(colorFromHexString(*normalized)) == written,
                "both readings agree");
    }
    text.remove(u'#');
    require(hexStringForColor(colorFromHexString(text)) == written, "the sign does not matter");
}
