#include "theme/ColorsAtHand.h"

#include "platform/foundation/NSUserDefaults.h"
#include "theme/ColorText.h"
#include "theme/ShownColor.h"

using namespace Qt::StringLiterals;

namespace
{
constexpr int namesShown = 3;
const QString recentKey = u"recent"_s;

QString fileIn(const QString &documents)
{
    return documents + "/Colors.plist"_L1;
}

QStringList colorsIn(const NSUserDefaults &settings)
{
    QStringList colors;
    for (const QVariant &stored : settings.objectForKey(recentKey).toList())
        if (const auto color = normalizedColorText(stored.toString());
            color && !colors.contains(*color) && colors.size() < ColorsAtHand::mostRecent)
            colors.append(*color);
    return colors;
}
} // namespace

std::vector<ColorsAtHand::Color> ColorsAtHand::inTheme(const ElementDataSource &elements)
{
    std::vector<Color> colors;
    QHash<QRgb, std::pair<size_t, int>> known; // the place, and how many elements have it
    for (const ElementRecord &record : elements.tableSource()) {
        const auto text = record.isChoice() ? std::nullopt : record.shownColor();
        if (!text)
            continue;
        const QRgb rgb = rgbFromHexString(*text);
        if (!known.contains(rgb)) {
            known[rgb] = {colors.size(), 0};
            colors.push_back({hexStringForRgb(rgb), {}});
        }
        auto &[place, count] = known[rgb];
        if (++count <= namesShown)
            colors[place].names += (count > 1 ? u", "_s : QString()) + record.name;
        else if (count == namesShown + 1)
            colors[place].names += u", \u2026"_s;
    }
    return colors;
}

QStringList ColorsAtHand::recent(const QString &documents)
{
    return colorsIn(NSUserDefaults(fileIn(documents)));
}

std::error_code ColorsAtHand::remember(const QString &colorText, const QString &documents)
{
    NSUserDefaults settings(fileIn(documents)); // with what another Tintloom has added meanwhile
    QStringList colors = colorsIn(settings);
    colors.removeAll(colorText);
    colors.prepend(colorText);
    settings.setObjectForKey(
        QVariantList(colors.begin(),
                     colors.begin() + std::min<qsizetype>(colors.size(), mostRecent)),
        recentKey);
    return settings.synchronize();
}
