#include "theme/ColorText.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{
/// -1 for what is no hexadecimal digit. Full-width and other scripts' digits are none.
int hexDigit(QChar character)
{
    const char16_t unit = character.unicode();
    if (unit >= u'0' && unit <= u'9')
        return unit - u'0';
    const int letter = unit | 0x20;
    return letter >= 'a' && letter <= 'f' ? letter - 'a' + 10 : -1;
}

/// White space and a "0x" are passed over; ends at the first other character that is no digit.
quint32 scanHexInt(QStringView text)
{
    while (!text.isEmpty() && text.front().isSpace())
        text = text.sliced(1);
    if (text.startsWith("0x"_L1, Qt::CaseInsensitive))
        text = text.sliced(2);
    constexpr quint64 maximum = 0xFFFFFFFF;
    quint64 value = 0;
    for (const QChar character : text) {
        const int digit = hexDigit(character);
        if (digit < 0)
            break;
        value = value * 16 + quint64(digit);
        if (value > maximum)
            return quint32(maximum);
    }
    return quint32(value);
}

/// Three characters doubled, then six made opaque by `alpha`; other lengths as they are.
QString widened(QString digits, QLatin1StringView alpha)
{
    if (digits.size() == 3) {
        const QChar doubled[] = {digits[0], digits[0], digits[1], digits[1], digits[2], digits[2]};
        digits = QString(doubled, 6);
    }
    return digits.size() == 6 ? digits + alpha : digits;
}
} // namespace

QString hexStringForColor(const UIColor &color)
{
    const auto [red, green, blue, alpha] = color.components();
    const auto byte = [](double component) { return unsigned(component * 255.0); };
    return QString::asprintf("#%02X%02X%02X%02X", byte(red), byte(green), byte(blue), byte(alpha));
}

QString hexStringForRgb(QRgb color)
{
    return QString::asprintf("#%02X%02X%02X%02X", unsigned(qRed(color)), unsigned(qGreen(color)),
                             unsigned(qBlue(color)), unsigned(qAlpha(color)));
}

UIColor colorFromHexString(const QString &text)
{
    QString digits = text;
    const quint32 value = scanHexInt(widened(digits.remove(u'#'), "ff"_L1));
    const auto component = [value](int shift) {
        return double(float((value >> shift) & 0xFF) / 255.0F);
    };
    return UIColor::colorWithRed(component(24), component(16), component(8), component(0));
}

double brightnessFromColor(const UIColor &color)
{
    const auto [red, green, blue, alpha] = color.components();
    if (alpha < double(0.2F))
        return 1.0;
    return 0.2126 * red + 0.7152 * green + 0.0722 * blue;
}

bool prefersBlackText(const UIColor &color)
{
    return brightnessFromColor(color) > 0.3;
}

std::optional<QString> normalizedColorText(const QString &text)
{
    const QString digits = text.startsWith(u'#') ? text.sliced(1) : text;
    const bool lengthFits = digits.size() == 3 || digits.size() == 6 || digits.size() == 8;
    if (!lengthFits ||
        !std::all_of(digits.begin(), digits.end(), [](QChar c) { return hexDigit(c) >= 0; }))
        return std::nullopt;
    return u'#' + widened(digits, "FF"_L1).toUpper();
}
