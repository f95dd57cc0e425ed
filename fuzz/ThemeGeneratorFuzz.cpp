// A theme made of one colour. The first line is the wish: colour text, the element that it is for,
// harmony, strength, tone, and a number whose bits are the locked elements; the rest is a document.
#include "advice/ThemeGenerator.h"
#include "fuzz/FuzzTargets.h"
#include "theme/ShownColor.h"

#include <set>

using Fuzz::require;

namespace
{
bool isSame(const GeneratedTheme &one, const GeneratedTheme &other)
{
    return one.left == other.left &&
           std::ranges::equal(one.changes, other.changes, [](const auto &a, const auto &b) {
               return a.index == b.index && a.choice == b.choice;
           });
}

std::set<std::pair<int, Finding::Kind>> found(const std::vector<Finding> &findings)
{
    std::set<std::pair<int, Finding::Kind>> elements;
    for (const Finding &finding : findings)
        elements.emplace(finding.element, finding.kind);
    return elements;
}

/// What can be said of any theme; returns its colours.
ThemeColors checked(const ElementDataSource &base, const std::set<int> &locked,
                    const GeneratedTheme &theme)
{
    ThemeColors colors(base);
    int last = -1;
    for (const auto &[index, choice] : theme.changes) {
        require(index > last && index < colors.count(), "changes are in order");
        last = index;
        const ElementRecord &record = base.tableSource()[size_t(index)];
        require(!record.isChoice() && !locked.contains(index), "what is locked stays");
        require(choice.value == record.value && choice.color.toString().size() == 9,
                "a change is colour text");
        colors.setColorText(index, choice.color.toString());
    }
    require(findings(colors) == theme.left, "what is hard to see is told");
    return colors;
}
} // namespace

void Fuzz::themeGenerator(const QByteArray &bytes)
{
    const qsizetype end = std::max<qsizetype>(bytes.indexOf('\n'), 0);
    const QByteArrayList words = bytes.first(end).split(' ');
    const auto base =
        ElementDataSource::parse(bytes.sliced(end), QStringLiteral("document"), nullptr);
    const int count = int(base.tableSource().size());
    if (count > 60)
        return; // the mending of many takes its time, and shows nothing new
    const quint64 lockBits = words.value(5).toULongLong();
    std::set<int> locked;
    for (int index = 0; index < count; ++index)
        if (lockBits >> index & 1)
            locked.insert(index);
    const auto tone = Tone(words.value(4).toUInt() % 3);
    const ThemeGenerator generator(base, locked, tone);
    ThemeWish wish{rgbFromHexString(words.value(0)), words.value(1).toInt(),
                   Harmony(words.value(2).toUInt() % 5), words.value(3).toDouble()};

    const GeneratedTheme theme = generator.generate(wish);
    require(isSame(theme, generator.generate(wish)), "the same wish gives the same theme");
    const ThemeColors colors = checked(base, locked, theme);
    const int picked = *wish.element;
    if (wish.strength > 0.0 && picked >= 0 && picked < count && !locked.contains(picked) &&
        !base.tableSource()[size_t(picked)].isChoice())
        require(colors.color(picked) == wish.color, "the picked colour is kept");

    wish.element.reset();
    const auto before = found(findings(base));
    for (const auto &finding : found(generator.generate(wish).left))
        require(before.contains(finding), "nothing is harder to see than before");
    wish.strength = 0.0;
    require(tone != Tone::AsItIs || generator.generate(wish).changes.empty(),
            "no strength changes nothing");
}
