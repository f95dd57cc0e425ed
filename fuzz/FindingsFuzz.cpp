// What is found in a list of elements, and its repair. Elements whose keys begin with "l" are
// locked.
#include "advice/ElementContrast.h"
#include "advice/FixAll.h"
#include "fuzz/FuzzTargets.h"

#include <algorithm>

namespace
{
// A repair tries many colours for every element; more of them only cost time.
constexpr int mostElements = 24;

void requireSound(const std::vector<Finding> &found, const ThemeColors &colors)
{
    for (const Finding &finding : found) {
        Fuzz::require(0 <= finding.element && finding.element < colors.count() && 0 <= finding.on &&
                          finding.on < colors.count(),
                      "findings name elements");
        Fuzz::require(finding.element != finding.on, "nothing stands on itself");
        Fuzz::require(finding.ratio < finding.threshold, "what is found falls short");
    }
}

void requireOffersThatRead(const ElementDataSource &elements, const ThemeColors &colors)
{
    using Level = ElementContrast::Level;
    for (int index = 0; index < colors.count(); ++index) {
        ElementContrast contrast(elements, index);
        const QRgb color = colors.color(index).value_or(0xFFFFFFFF);
        const ReadableColors offers = contrast.nearest(color, [](QRgb picked) { return picked; });
        for (const auto &offer : {offers.lighter, offers.darker}) {
            const auto reading = offer ? contrast.reading(*offer) : std::nullopt;
            Fuzz::require(!reading || reading->level == Level::ReadsWell, "offers read well");
        }
    }
}

void requireMended(const ElementDataSource &elements)
{
    std::set<int> locked;
    for (int index = 0; index < int(elements.tableSource().size()); ++index)
        if (elements.tableSource()[size_t(index)].key.startsWith(u'l'))
            locked.insert(index);
    const FixedTheme fixed = fixAll(elements, locked);
    ThemeDocument document(elements);
    const bool hasChanged = document.changeAll(fixed.changes, QStringLiteral("Fix All"));
    Fuzz::require(hasChanged == !fixed.changes.empty(), "every change is one");
    for (const auto &change : fixed.changes)
        Fuzz::require(!locked.contains(change.index), "locked elements stay");
    std::vector<Finding> left;
    for (const auto &[finding, reason] : fixed.left) {
        left.push_back(finding);
        Fuzz::require(reason == FixedTheme::Reason::NoColor || locked.contains(finding.element) ||
                          locked.contains(finding.on),
                      "what is left says why");
    }
    Fuzz::require(findings(document.elements()) == left, "what is left is all that is found");
}
} // namespace

void Fuzz::findings(const QByteArray &bytes)
{
    const auto elements = ElementDataSource::parse(bytes, QStringLiteral("document"), nullptr);
    if (elements.tableSource().size() > mostElements)
        return;
    const ThemeColors colors(elements);
    requireSound(::findings(colors), colors);
    requireOffersThatRead(elements, colors);
    requireMended(elements);
}
