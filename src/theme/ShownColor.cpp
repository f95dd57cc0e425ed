#include "theme/ShownColor.h"

#include "theme/ColorText.h"

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace
{
constexpr QRgb white = 0xFFFFFFFF;
constexpr QRgb black = 0xFF000000;

/// A theme without a colour leaves the choice to the phone, which keeps to its own plain greys: so
/// do these, in a tone for light surroundings and one for dark, because the surroundings may be the
/// theme's.
struct StandIn {
    QLatin1StringView key;
    QRgb onLight;
    QRgb onDark;
};

constexpr StandIn standIns[] = {
    // Each of the three stands for a pair: where one colour is left, it fills the balloon alone.
    {"green-balloon-colors_1"_L1, 0xFFD9EEDD, 0xFF26382C}, // faint, but still the green one
    {"blue-balloon-colors_1"_L1, 0xFFD8E5F4, 0xFF24334A},
    {"gray-balloon-colors_1"_L1, 0xFFE6E8EB, 0xFF2B2F35},
    {"balloon-text-color"_L1, 0xFF1B1E22, 0xFFEEF0F2},  // has to be read on any balloon
    {"conversation-background-color"_L1, white, white}, // the phone's bare screen
    {"sender-name-color"_L1, 0xFF6B7279, 0xFF9CA3AB},   // a caption, quieter than the messages
    {"timestamp-color"_L1, 0xFF6B7279, 0xFF9CA3AB},
    {"composer-background-color"_L1, 0xFFF1F2F4, 0xFF1E2125}, // parts from the ground, barely
    {"composer-text-color"_L1, 0xFF1B1E22, 0xFFEEF0F2},
    {"send-button-color"_L1, 0xFF8A9199, 0xFF7B828A}, // a button, in no colour
    // Pictures of a theme have no transparency: a save writes those of a removed colour in black.
    {"list-background-image"_L1, black, black},
    {"unread-indicator-image"_L1, black, black},
    {"list-name-color"_L1, 0xFF1B1E22, 0xFFEEF0F2},
    // Unread names have none of their own: they look like the others.
    {"list-preview-color"_L1, 0xFF6B7279, 0xFF9CA3AB},
    {"list-separator-color"_L1, 0xFFD3D7DB, 0xFF363B41}, // a hair's breadth that can be seen
    {"navigation-bar-color"_L1, 0xFFF1F2F4, 0xFF1E2125}, // as the composer below
    {"navigation-title-color"_L1, 0xFF1B1E22, 0xFFEEF0F2},
};
} // namespace

QRgb rgbFromHexString(const QString &colorText)
{
    const auto [red, green, blue, alpha] = colorFromHexString(colorText).components();
    const auto byte = [](double component) { return int(std::lround(component * 255.0)); };
    return qRgba(byte(red), byte(green), byte(blue), byte(alpha));
}

bool isLight(QRgb color)
{
    return prefersBlackText(UIColor::colorWithRed(qRed(color) / 255.0, qGreen(color) / 255.0,
                                                  qBlue(color) / 255.0, qAlpha(color) / 255.0));
}

std::optional<QRgb> standInColor(const QString &key, QRgb ground)
{
    const auto *const found = std::ranges::find_if(
        standIns, [&key](const StandIn &standIn) { return standIn.key == key; });
    if (found == std::end(standIns))
        return std::nullopt;
    return isLight(ground) ? found->onLight : found->onDark;
}

bool isPictureColor(const QString &key)
{
    return key == "list-background-image"_L1 || key == "unread-indicator-image"_L1;
}
