#include "advice/ThemeGenerator.h"

#include "support/ThemeFixture.h"
#include "theme/ColorText.h"

#include <algorithm>
#include <cmath>
#include <random>

namespace
{
ElementDataSource shipped()
{
    return ElementDataSource::loadWith(TINTLOOM_SOURCE_RESOURCES, nullptr);
}

/// The document's own colours, and every ready-made theme.
std::vector<ElementDataSource> readyMade()
{
    std::vector<ElementDataSource> all{shipped()};
    const QDir resources(TINTLOOM_SOURCE_RESOURCES);
    for (const QString &theme : resources.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        if (const auto info =
                PropertyList::readDictionary(contents(resources.filePath(theme + "/Info.plist"))))
            all.push_back(ElementDataSource::loadWith(TINTLOOM_SOURCE_RESOURCES, &*info));
    }
    return all;
}

ThemeColors applied(const ElementDataSource &elements, const GeneratedTheme &theme)
{
    ThemeColors colors(elements);
    for (const auto &[index, choice] : theme.changes)
        colors.setColorText(index, choice.color.toString());
    return colors;
}

int indexOf(const ElementDataSource &elements, const QString &key)
{
    return elements.indexesOfKey(key).at(0);
}

OKLCh placeOf(QRgb color)
{
    return oklchFromOklab(oklabFromRgb(color));
}

bool isEqual(const GeneratedTheme &one, const GeneratedTheme &other)
{
    return std::ranges::equal(one.changes, other.changes, [](const auto &a, const auto &b) {
        return a.index == b.index && a.choice == b.choice;
    });
}

std::string told(const ElementDataSource &elements, const std::vector<Finding> &findings)
{
    QStringList texts;
    for (const Finding &finding : findings)
        texts += elements.tableSource()[size_t(finding.element)].key + '/' +
                 elements.tableSource()[size_t(finding.on)].key;
    return texts.join(" ").toStdString();
}

QByteArray randomColor(std::mt19937 &random)
{
    const unsigned alpha = random() % 3 == 0 ? random() % 256 : 255;
    return random() % 8 == 0 ? QByteArray()
                             : hexStringForRgb((random() & 0xFFFFFF) | (alpha << 24)).toLatin1();
}

/// Two to seven elements, with and without a meaning of their own, each on others before it.
ElementDataSource smallDocument(std::mt19937 &random)
{
    QByteArrayList keys{"conversation-background-color",
                        "green-balloon-colors_1",
                        "green-balloon-colors_2",
                        "blue-balloon-colors_1",
                        "balloon-text-color",
                        "list-background-image",
                        "unread-indicator-image",
                        "one",
                        "another"};
    std::ranges::shuffle(keys, random);
    QByteArrayList elements;
    for (qsizetype index = 0, count = 2 + qsizetype(random() % 6); index < count; ++index) {
        static constexpr const char *kinds[] = {"text", "large", "mark", "behind"};
        QByteArrayList grounds;
        for (const QByteArray &ground : keys.first(index))
            if (random() % 3 == 0)
                grounds.append('"' + ground + '"');
        const QByteArray plain = element(keys[index], '"' + randomColor(random) + '"');
        elements.append(plain.chopped(1) + ",\"on\":{\"" + kinds[random() % 4] + "\":[" +
                        grounds.join(',') + "]}}");
    }
    return ElementDataSource::parse('[' + elements.join(',') + ']', "document", nullptr);
}

/// All elements that ship, in random colours.
ElementDataSource recolored(std::mt19937 &random)
{
    const ElementDataSource elements = shipped();
    PropertyDictionary saved;
    for (const ElementRecord &record : elements.tableSource())
        if (!record.isChoice())
            saved.setValue(record.key, QString(randomColor(random)));
    return ElementDataSource::loadWith(TINTLOOM_SOURCE_RESOURCES, &saved);
}

std::set<int> randomLocks(std::mt19937 &random, int count)
{
    std::set<int> locked;
    for (int index = 0; index < count; ++index)
        if (random() % 4 == 0)
            locked.insert(index);
    return locked;
}

/// Holds for any base; returns the theme's colours.
ThemeColors expectSound(const ElementDataSource &elements, const std::set<int> &locked,
                        const ThemeGenerator &generator, const ThemeWish &wish)
{
    const GeneratedTheme theme = generator.generate(wish);
    for (const auto &[index, choice] : theme.changes) {
        EXPECT_FALSE(locked.contains(index));
        EXPECT_NE(choice.color, elements.tableSource()[size_t(index)].color);
        EXPECT_EQ(choice.value, elements.tableSource()[size_t(index)].value);
    }
    const ThemeColors colors = applied(elements, theme);
    EXPECT_EQ(findings(colors), theme.left);
    if (wish.element && !locked.contains(*wish.element) && wish.strength > 0.0 &&
        !elements.tableSource()[size_t(*wish.element)].isChoice()) {
        EXPECT_EQ(colors.color(*wish.element), wish.color);
    }
    return colors;
}
} // namespace

TEST(ThemeGenerator, MakesReadableThemesOfAnyColorFromAnyReadyMadeOne)
{
    const std::vector<ElementDataSource> bases = readyMade();
    ASSERT_EQ(bases.size(), 15U);
    std::mt19937 random(17);
    for (int round = 0; round < 4000; ++round) {
        const ElementDataSource &base = bases[random() % bases.size()];
        const auto tone = Tone(random() % 3);
        const ThemeGenerator generator(base, {}, tone);
        const ThemeWish wish{QRgb(random() | 0xFF000000), generator.usualElement(base),
                             Harmony(random() % 5), 0.1 * double(1 + random() % 10)};
        SCOPED_TRACE(std::to_string(round) + ": " + hexStringForRgb(wish.color).toStdString());
        const ThemeColors colors = expectSound(base, {}, generator, wish);
        EXPECT_EQ(told(base, findings(colors)), "");
        EXPECT_TRUE(tone == Tone::AsItIs || ThemeTone(colors, colors.relations()).tone() == tone);
        if (testing::Test::HasFailure())
            return;
    }
}

TEST(ThemeGenerator, HoldsTheLightOfWhatThePickedColorLeavesAlone)
{
    std::mt19937 random(5);
    for (const ElementDataSource &base : readyMade()) {
        const ThemeGenerator generator(base, {});
        const ThemeColors before(base);
        const ThemeTone groups(before, before.relations());
        for (int round = 0; round < 20; ++round) {
            const int picked = *generator.usualElement(base);
            const ThemeColors after = expectSound(
                base, {}, generator, {QRgb(random() | 0xFF000000), picked, Harmony(random() % 5)});
            for (int index = 0; index < before.count(); ++index) {
                if (!before.color(index) || groups.groupOf(index) == groups.groupOf(picked))
                    continue;
                // As a contrast to it would show; what the last byte or a nudge moves it.
                const double ratio = contrastRatio(*before.color(index), *after.color(index));
                EXPECT_LT(ratio, 1.08) << base.tableSource()[size_t(index)].key.toStdString();
            }
        }
    }
}

TEST(ThemeGenerator, LeavesLockedElementsAndAtNoStrengthEveryByte)
{
    std::mt19937 random(3);
    for (const ElementDataSource &base : readyMade())
        for (int round = 0; round < 30; ++round) {
            const std::set<int> locked = randomLocks(random, int(base.tableSource().size()));
            const ThemeGenerator generator(base, locked);
            ThemeWish wish{QRgb(random() | 0xFF000000), generator.usualElement(base)};
            expectSound(base, locked, generator, wish);
            wish.strength = round % 2 ? 0.0 : std::nan("");
            EXPECT_TRUE(generator.generate(wish).changes.empty());
            // A colour for nothing in particular leads alone, and then everything can be read.
            wish = {wish.color, std::nullopt, Harmony(random() % 5)};
            EXPECT_EQ(told(base, generator.generate(wish).left), "");
        }
}

TEST(ThemeGenerator, KeepsItsPromisesForAnyDocumentWhateverIsLocked)
{
    std::mt19937 random(23);
    int mended = 0;
    for (int round = 0; round < 2000; ++round) {
        SCOPED_TRACE(round);
        // All that ships takes as long as a hundred small ones.
        const ElementDataSource base = round % 500 ? smallDocument(random) : recolored(random);
        const int count = int(base.tableSource().size());
        const std::set<int> locked = round % 2 ? randomLocks(random, count) : std::set<int>();
        const auto tone = Tone(random() % 3);
        const ThemeGenerator generator(base, locked, tone);
        ThemeWish wish{QRgb(random()), std::nullopt, Harmony(random() % 5)};
        const std::vector<Finding> before = findings(base);
        std::set<std::pair<int, Finding::Kind>> found;
        for (const Finding &finding : before)
            found.emplace(finding.element, finding.kind);
        const std::vector<Finding> after = findings(expectSound(base, locked, generator, wish));
        for (const Finding &finding : after)
            EXPECT_TRUE(found.contains({finding.element, finding.kind})) << told(base, {finding});
        mended += int(before.size()) - int(after.size());

        wish.element = int(random() % unsigned(count));
        wish.strength = 0.01 * double(1 + random() % 100);
        expectSound(base, locked, generator, wish);
        if (round % 8 == 0) {
            EXPECT_TRUE(isEqual(generator.generate(wish),
                                ThemeGenerator(base, locked, tone).generate(wish)));
        }
        wish.strength = 0.0;
        EXPECT_TRUE(tone != Tone::AsItIs || generator.generate(wish).changes.empty());
        if (testing::Test::HasFailure())
            return;
    }
    EXPECT_GT(mended, 1000);
}

TEST(ThemeGenerator, MovesFamiliesByTheHarmony)
{
    const ElementDataSource base = shipped();
    const ThemeGenerator generator(base, {});
    const QRgb rose = 0xFFF0A0B8;
    const auto hue = [&base](const ThemeColors &colors, const char *key) {
        return placeOf(*colors.color(indexOf(base, key))).hue;
    };
    const auto degreesBetween = [](double one, double other) {
        return std::abs(std::remainder((one - other) * 180.0 / M_PI, 360.0));
    };
    const double offsets[] = {0.0, 30.0, 150.0, 120.0, 180.0}; // in the order of the harmonies
    for (int harmony = 0; harmony < 5; ++harmony) {
        const ThemeColors colors = applied(
            base, generator.generate({rose, generator.usualElement(base), Harmony(harmony)}));
        const double lead = placeOf(rose).hue, offset = offsets[harmony] * M_PI / 180.0;
        for (const auto &[key, expected] : {std::pair("blue-balloon-colors_1", offset),
                                            {"blue-balloon-colors_2", offset},
                                            {"unread-indicator-image", -offset},
                                            {"green-balloon-colors_2", 0.0}})
            EXPECT_LT(degreesBetween(hue(colors, key), lead + expected), 12.0) << key << harmony;
    }
    // The two ends of a balloon keep their distance, and their mean is led.
    PropertyDictionary saved;
    saved.setValue("blue-balloon-colors_2", "#8F7BF2");
    const auto apart = ElementDataSource::loadWith(TINTLOOM_SOURCE_RESOURCES, &saved);
    const ThemeHarmony families{ThemeColors(apart)};
    const int one = indexOf(apart, "blue-balloon-colors_1"), other = one + 1;
    const auto placed = [&](int index) {
        return families.placeOf(index, {0.7, 0.2, 1.0}, *generator.usualElement(apart),
                                Harmony::Triadic);
    };
    const OKLab first = oklabFromOklch(placed(one)), second = oklabFromOklch(placed(other));
    EXPECT_LT(
        degreesBetween(std::atan2(first.b + second.b, first.a + second.a), 1.0 + 2.0 * M_PI / 3.0),
        3.0);
    EXPECT_NEAR(degreesBetween(placed(other).hue, placed(one).hue),
                degreesBetween(families.baseOf(other).hue, families.baseOf(one).hue), 1e-6);
    EXPECT_GT(degreesBetween(placed(other).hue, placed(one).hue), 10.0);
    // Of a grey everything is grey, but for a quiet accent.
    const ThemeColors grey =
        applied(base, generator.generate({0xFFB0B0B0, generator.usualElement(base)}));
    for (int index = 0; index < grey.count(); ++index) {
        const QString key = base.tableSource()[size_t(index)].key;
        EXPECT_NEAR(placeOf(grey.color(index).value_or(0)).chroma,
                    key.startsWith("unread") ? 0.04 : 0.0, 0.01)
            << key.toStdString();
    }
}

TEST(ThemeGenerator, TurnsRoundWhatThePickedColorRulesOut)
{
    const ElementDataSource base = shipped();
    const auto expectLightness = [&base](const ThemeColors &colors, double least, double most,
                                         std::initializer_list<const char *> keys) {
        for (const char *key : keys) {
            const double lightness = placeOf(*colors.color(indexOf(base, key))).lightness;
            EXPECT_TRUE(lightness > least && lightness < most) << key << ": " << lightness;
        }
    };
    // No dark text can be read on it: the balloons are turned with it, and nothing else.
    const ThemeGenerator generator(base, {});
    const ThemeColors night =
        applied(base, generator.generate({0xFF201040, generator.usualElement(base)}));
    expectLightness(night, 0.0, 0.5,
                    {"green-balloon-colors_2", "blue-balloon-colors_1", "gray-balloon-colors_1"});
    expectLightness(night, 0.85, 1.0, {"balloon-text-color", "list-background-image"});

    const ThemeWish wish{0xFF30506A, std::nullopt};
    expectLightness(applied(base, ThemeGenerator(base, {}, Tone::Dark).generate(wish)), 0.0, 0.45,
                    {"list-background-image", "composer-background-color", "navigation-bar-color"});
    EXPECT_TRUE(
        isEqual(ThemeGenerator(base, {}, Tone::Light).generate(wish), generator.generate(wish)));
    EXPECT_TRUE(ThemeGenerator(ElementDataSource(), {}).generate(wish).changes.empty());
    EXPECT_TRUE(generator.generate({wish.color, 6}).left.empty()) << "an option gets no colour";
}

TEST(ThemeGenerator, DrawsTheSameOfASeed)
{
    std::set<QRgb> colors;
    for (quint64 seed = 0; seed < 200; ++seed) {
        const DrawnWish drawn = drawnWish(seed);
        EXPECT_EQ(placeOf(drawn.color).lightness > 0.6, drawn.tone == Tone::Light);
        EXPECT_EQ(drawnWish(seed, Tone::Dark).tone, Tone::Dark);
        colors.insert(drawn.color);
    }
    EXPECT_EQ(colors.size(), 200U);
    // On every machine.
    EXPECT_EQ(drawnWish(1).color, 0xFF006F78);
}
