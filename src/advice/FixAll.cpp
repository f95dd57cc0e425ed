#include "advice/FixAll.h"

#include "advice/ThemeMender.h"
#include "theme/ColorText.h"

#include <QString>

FixedTheme fixAll(const ElementDataSource &elements, const std::set<int> &locked)
{
    ThemeMender mender(ThemeColors(elements), locked);
    mender.mend();
    FixedTheme fixed;
    for (const int index : mender.changed()) {
        const QRgb color = *mender.colors().color(index);
        fixed.changes.push_back(
            {index, {hexStringForRgb(color), elements.tableSource()[size_t(index)].value}});
    }
    for (const Finding &finding : findings(mender.colors())) {
        const bool isLocked = locked.contains(finding.element) || locked.contains(finding.on);
        fixed.left.push_back(
            {finding, isLocked ? FixedTheme::Reason::Locked : FixedTheme::Reason::NoColor});
    }
    return fixed;
}
