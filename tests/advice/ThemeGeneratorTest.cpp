#include "advice/ThemeGenerator.h"

#include "advice/FixAll.h"
#include "support/ThemeFixture.h"
#include "theme/ColorText.h"

#include <cmath>
#include <random>

namespace
{
ElementDataSource shipped(const QMap<QString, QString> &choices = {})
{
    PropertyDictionary saved;
    for (auto choice = choices.begin(); choice != choices.end(); ++choice)
        saved.setValue(choice.key(), choice.value());
    return ElementDataSource::loadWith(TINTLOOM_SOURCE_RESOURCES, &saved);
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

double degrees(double radians)
{
    return std::remainder(radians * 180.0 / M_PI, 360.0);
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
    EXPECT_TRUE(isEqual(theme, generator.generate(wish)));
    for (const auto &[index, choice] : theme.changes) {
        EXPECT_FALSE(locked.contains(index));
        EXPECT_NE(choice.color, elements.tableSource()[size_t(index)].color);
        EXPECT_EQ(choice.value, elements.tableSource()[size_t(index)].value);
    }
    const ThemeColors colors = applied(elements, theme);
    EXPECT_EQ(findings(colors), theme.left);
    if (wish.element && !locked.contains(*wish.element) && wish.strength > 0.0) {
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
    for (int round = 0; round < 3000; ++round) {
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
            // The same colour as before asks nothing of anybody.
            const ThemeColors same =
                expectSound(base, {}, generator, {*before.color(picked), picked});
            for (int index = 0; index < before.count(); ++index)
                EXPECT_LT(
                    contrastRatio(before.color(index).value_or(0), same.color(index).value_or(0)),
                    1.08);
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

TEST(ThemeGenerator, IsNoWorseThanAnyBaseWhateverIsLocked)
{
    std::mt19937 random(23);
    ThemeDocument document(shipped());
    int mended = 0;
    for (int round = 0; round < 150; ++round) {
        SCOPED_TRACE(round);
        ThemeDocument::Changes choices;
        for (int index = 0; index < document.count(); ++index) {
            const unsigned alpha = random() % 3 == 0 ? random() % 256 : 255;
            if (!document.record(index).isChoice())
                choices.push_back(
                    {index,
                     {random() % 8 == 0 ? QString("")
                                        : hexStringForRgb((random() & 0xFFFFFF) | (alpha << 24)),
                      {}}});
        }
        document.changeAll(choices, "random");
        const ElementDataSource &base = document.elements();
        const std::set<int> locked =
            round % 2 ? randomLocks(random, document.count()) : std::set<int>();
        const ThemeGenerator generator(base, locked, Tone(random() % 3));
        const std::vector<Finding> before = findings(base);
        std::set<std::pair<int, Finding::Kind>> found;
        for (const Finding &finding : before)
            found.emplace(finding.element, finding.kind);
        const ThemeColors colors =
            expectSound(base, locked, generator, {QRgb(random()), std::nullopt, Harmony::Triadic});
        const std::vector<Finding> after = findings(colors);
        for (const Finding &finding : after)
            EXPECT_TRUE(found.contains({finding.element, finding.kind})) << told(base, {finding});
        mended += int(before.size()) - int(after.size());
        expectSound(base, locked, generator, {QRgb(random()), int(random() % 6)});
        if (testing::Test::HasFailure())
            return;
    }
    EXPECT_GT(mended, 500);
}

TEST(ThemeGenerator, MovesFamiliesByTheHarmony)
{
    const ElementDataSource base =
        shipped({{"green-balloon-colors_1", "#8EEBB0"}, {"green-balloon-colors_2", "#46CFB0"}});
    const ThemeGenerator generator(base, {});
    const QRgb rose = 0xFFF0A0B8;
    const struct {
        Harmony harmony;
        double offset;
    } cases[] = {{Harmony::Single, 0.0},
                 {Harmony::Analogous, 30.0},
                 {Harmony::Split, 150.0},
                 {Harmony::Triadic, 120.0},
                 {Harmony::Complementary, 180.0}};
    for (const auto &[harmony, offset] : cases) {
        const ThemeColors colors =
            applied(base, generator.generate({rose, generator.usualElement(base), harmony}));
        const auto hueFromLead = [&](const QString &key) {
            const OKLCh place = placeOf(*colors.color(indexOf(base, key)));
            EXPECT_GT(place.chroma, 0.02) << key.toStdString();
            return degrees(place.hue - placeOf(rose).hue);
        };
        const auto expectHue = [&](const QString &key, double expected) {
            EXPECT_NEAR(std::remainder(hueFromLead(key) - expected, 360.0), 0.0, 12.0)
                << key.toStdString() << " by " << offset;
        };
        expectHue("blue-balloon-colors_1", offset);
        expectHue("blue-balloon-colors_2", offset);
        expectHue("unread-indicator-image", -offset);
        expectHue("navigation-bar-color", 0.0);
        // The two ends of the base's green differ by some degrees, and go on to.
        const auto hueIn = [&](const ThemeColors &of, const char *key) {
            return placeOf(*of.color(indexOf(base, key))).hue;
        };
        const ThemeColors before(base);
        const double mean = std::atan2(oklabFromRgb(0xFF8EEBB0).b + oklabFromRgb(0xFF46CFB0).b,
                                       oklabFromRgb(0xFF8EEBB0).a + oklabFromRgb(0xFF46CFB0).a);
        EXPECT_NEAR(degrees(hueIn(colors, "green-balloon-colors_2") - placeOf(rose).hue),
                    degrees(hueIn(before, "green-balloon-colors_2") - mean), 3.0);
    }
}

TEST(ThemeGenerator, OfAGreyIsGreyWithAQuietAccent)
{
    const ElementDataSource base = shipped();
    const ThemeGenerator generator(base, {});
    const ThemeColors colors =
        applied(base, generator.generate({0xFFB0B0B0, generator.usualElement(base)}));
    for (int index = 0; index < colors.count(); ++index) {
        if (!colors.color(index))
            continue;
        const QString key = base.tableSource()[size_t(index)].key;
        const double chroma = placeOf(*colors.color(index)).chroma;
        if (key.startsWith("unread"))
            EXPECT_NEAR(chroma, 0.04, 0.01) << key.toStdString();
        else
            EXPECT_LT(chroma, 0.01) << key.toStdString();
    }
}

TEST(ThemeGenerator, TurnsRoundWhatThePickedColorRulesOut)
{
    const ElementDataSource base = shipped();
    const ThemeGenerator generator(base, {});
    const auto lightness = [&base](const ThemeColors &colors, const QString &key) {
        return placeOf(*colors.color(indexOf(base, key))).lightness;
    };
    // No dark text can be read on it: the balloons are turned with it, and nothing else.
    const ThemeColors night =
        applied(base, generator.generate({0xFF201040, generator.usualElement(base)}));
    EXPECT_GT(lightness(night, "balloon-text-color"), 0.85);
    for (const QString key : {"green-balloon-colors_2", "blue-balloon-colors_1",
                              "blue-balloon-colors_2", "gray-balloon-colors_1"})
        EXPECT_LT(lightness(night, key), 0.5) << key.toStdString();
    EXPECT_GT(lightness(night, "list-background-image"), 0.9);
    EXPECT_GT(lightness(night, "conversation-background-color"), 0.9);

    const ThemeWish wish{0xFF30506A, std::nullopt};
    const ThemeColors dark = applied(base, ThemeGenerator(base, {}, Tone::Dark).generate(wish));
    for (const QString key : {"list-background-image", "conversation-background-color",
                              "composer-background-color", "navigation-bar-color"})
        EXPECT_LT(lightness(dark, key), 0.45) << key.toStdString();
    EXPECT_TRUE(
        isEqual(ThemeGenerator(base, {}, Tone::Light).generate(wish), generator.generate(wish)));
    // Nothing to work on.
    EXPECT_TRUE(ThemeGenerator(ElementDataSource(), {}).generate(wish).changes.empty());
    EXPECT_TRUE(ThemeGenerator(base, {}).generate({wish.color, 6}).left.empty()) << "an option";
}

TEST(ThemeGenerator, DrawsTheSameOfASeed)
{
    std::set<QRgb> colors;
    std::set<Harmony> harmonies;
    std::set<Tone> tones;
    for (quint64 seed = 0; seed < 200; ++seed) {
        const DrawnWish drawn = drawnWish(seed);
        EXPECT_EQ(drawn.color, drawnWish(seed).color);
        EXPECT_EQ(drawnWish(seed, Tone::Dark).tone, Tone::Dark);
        EXPECT_EQ(placeOf(drawn.color).lightness > 0.6, drawn.tone == Tone::Light);
        colors.insert(drawn.color);
        harmonies.insert(drawn.harmony);
        tones.insert(drawn.tone);
    }
    EXPECT_EQ(colors.size(), 200U);
    EXPECT_EQ(harmonies.size(), 5U);
    EXPECT_EQ(tones, (std::set{Tone::Light, Tone::Dark}));
    // What every machine draws of it.
    EXPECT_EQ(hexStringForRgb(drawnWish(1).color).toStdString(), "#006F78FF");
}
