// The themes that ship: made from the palettes as they stand, complete, and legible.
#include "catalogue/ThemeList.h"
#include "support/Files.h"
#include "support/Jpeg.h"
#include "theme/ColorText.h"
#include "theme/ElementDataSource.h"

#include <QProcess>
#include <QTemporaryDir>

#include <cmath>

using namespace Qt::StringLiterals;

namespace
{
const QString resources = QStringLiteral(TINTLOOM_SOURCE_RESOURCES);

PropertyDictionary themeInfo(const QString &folder, const QString &name)
{
    const auto info =
        PropertyList::readDictionary(contents(folder + u'/' + name + "/Info.plist"_L1));
    EXPECT_TRUE(info) << name.toStdString();
    return info.value_or(PropertyDictionary());
}

QStringList themeNames()
{
    QStringList names;
    const ThemeList list = ThemeList::load(resources);
    for (int section = 0; section < list.numberOfSections(); ++section)
        for (int row = 0; row < list.numberOfRowsInSection(section); ++row)
            if (!list.record(section, row).isCustom())
                names.append(list.record(section, row).name);
    return names;
}

// Relative luminance and contrast ratio of WCAG 2.1.
double luminance(const UIColor &color)
{
    const auto linear = [](double c) {
        return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
    };
    const auto [red, green, blue, alpha] = color.components();
    EXPECT_EQ(alpha, 1.0);
    return 0.2126 * linear(red) + 0.7152 * linear(green) + 0.0722 * linear(blue);
}

double contrast(const UIColor &one, const UIColor &other)
{
    const auto [dark, light] = std::minmax({luminance(one), luminance(other)});
    return (light + 0.05) / (dark + 0.05);
}
} // namespace

TEST(ShippedThemes, FillACatalogue)
{
    const ThemeList list = ThemeList::load(resources);
    EXPECT_GE(list.numberOfSections(), 4);
    EXPECT_GE(list.installableNames().size(), 10);
    EXPECT_TRUE(list.find(ThemeRecord::ownTheme()));
    QStringList names = themeNames();
    EXPECT_GT(names.size(), list.installableNames().size()); // one is coming soon
    EXPECT_EQ(names.removeDuplicates(), 0);
    for (const QString &name : std::as_const(names))
        EXPECT_FALSE(list.find(name)->details.isEmpty()) << name.toStdString();
}

TEST(ShippedThemes, AreWhatThePalettesMakeOfEveryElement)
{
    const QTemporaryDir made;
    QProcess maker;
    maker.start(
        "env", {"TINTLOOM=" TINTLOOM_EXECUTABLE, resources + "/../tools/make-themes", made.path()});
    ASSERT_TRUE(maker.waitForFinished(100'000));
    ASSERT_EQ(maker.exitCode(), 0) << maker.readAllStandardError().toStdString();

    EXPECT_EQ(contents(made.filePath(u"themes.plist"_s)), contents(resources + "/themes.plist"_L1));
    const auto source = ElementDataSource::load(resources, made.path());
    ASSERT_FALSE(source.tableSource().empty());
    for (const QString &name : themeNames()) {
        SCOPED_TRACE(name.toStdString());
        const PropertyDictionary info = themeInfo(resources, name);
        EXPECT_EQ(info, themeInfo(made.path(), name));
        for (const auto &element : source.tableSource()) {
            const QVariant *value = info.find(element.key);
            EXPECT_TRUE(value && !value->toString().isEmpty()) << element.key.toStdString();
        }
        EXPECT_EQ(tree(resources + u'/' + name), tree(made.filePath(name)));
        const struct {
            QString file, key;
            QSize size;
        } pictures[] = {
            {u"/ListBackground@2x.jpg"_s, u"list-background-image"_s, {1280, 2272}},
            {u"/UIKit/UnreadIndicator@2x.png"_s, u"unread-indicator-image"_s, {48, 48}},
        };
        for (const auto &[file, key, size] : pictures) {
            const QImage picture = decodedJpeg(contents(resources + u'/' + name + file));
            EXPECT_EQ(picture.size(), size);
            expectSolid(picture, colorFromHexString(info.find(key)->toString()).qColor(), 3);
        }
    }
}

TEST(ShippedThemes, AreLegible)
{
    constexpr double forText = 4.5, forSigns = 3.0; // WCAG 2.1, level AA
    struct Pair {
        QString text, ground;
        double minimum = forText;
    };
    QList<Pair> pairs{
        {"composer-text-color", "composer-background-color"},
        {"sender-name-color", "conversation-background-color"},
        {"timestamp-color", "conversation-background-color"},
        {"list-name-color", "list-background-image"},
        {"list-preview-color", "list-background-image"},
        {"unread-name-color", "list-background-image"},
        {"navigation-title-color", "navigation-bar-color"},
        {"unread-indicator-image", "list-background-image", forSigns},
    };
    QStringList balloons;
    for (const QString color : {"green", "blue", "gray"})
        balloons += {color + "-balloon-colors_1", color + "-balloon-colors_2"};
    for (const QString &balloon : std::as_const(balloons))
        pairs.append({"balloon-text-color", balloon});
    for (const QString &name : themeNames()) {
        const PropertyDictionary info = themeInfo(resources, name);
        const auto color = [&](const QString &key) {
            return colorFromHexString(info.find(key)->toString());
        };
        for (const auto &[text, ground, minimum] : std::as_const(pairs))
            EXPECT_GE(contrast(color(text), color(ground)), minimum)
                << (name + ", " + text + " on " + ground).toStdString();
        for (const QString &balloon : std::as_const(balloons)) {
            const UIColor text =
                prefersBlackText(color(balloon)) ? UIColor::blackColor() : UIColor::whiteColor();
            EXPECT_GE(contrast(color(balloon), text), forText)
                << (name + ", " + balloon).toStdString();
        }
    }
}
