// The themes that ship: made from the palettes as they stand, complete, and legible.
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

PropertyDictionary themeInfo(const QString &folder)
{
    return PropertyList::readDictionary(contents(folder + "/Info.plist"_L1)).value();
}

/// One folder for each theme.
QStringList themesIn(const QString &folder)
{
    QStringList names = QDir(folder).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    names.removeOne(u"images"_s);
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

void expectLegible(const PropertyDictionary &info)
{
    constexpr double forText = 4.5, forSigns = 3.0; // WCAG 2.1, level AA
    const struct {
        QString text;
        QStringList grounds;
        double minimum = forText;
    } pairs[] = {
        {"composer-text-color", {"composer-background-color"}},
        {"sender-name-color", {"conversation-background-color"}},
        {"timestamp-color", {"conversation-background-color"}},
        {"list-name-color", {"list-background-image"}},
        {"list-preview-color", {"list-background-image"}},
        {"unread-name-color", {"list-background-image"}},
        {"navigation-title-color", {"navigation-bar-color"}},
        {"unread-indicator-image", {"list-background-image"}, forSigns},
        {"balloon-text-color",
         {"green-balloon-colors_1", "green-balloon-colors_2", "blue-balloon-colors_1",
          "blue-balloon-colors_2", "gray-balloon-colors_1", "gray-balloon-colors_2"}},
    };
    const auto color = [&](const QString &key) {
        return colorFromHexString(info.find(key)->toString());
    };
    for (const auto &[text, grounds, minimum] : pairs)
        for (const QString &ground : grounds)
            EXPECT_GE(contrast(color(text), color(ground)), minimum)
                << (text + " on " + ground).toStdString();
}
} // namespace

TEST(ShippedThemes, AreLegibleAndWhatThePalettesMake)
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
    EXPECT_EQ(themesIn(made.path()), themesIn(resources));
    for (const QString &name : themesIn(resources)) {
        SCOPED_TRACE(name.toStdString());
        const QString shipped = resources + u'/' + name, anew = made.filePath(name);
        const PropertyDictionary info = themeInfo(shipped);
        EXPECT_EQ(info, themeInfo(anew));
        expectLegible(info);
        for (const auto &element : source.tableSource()) {
            const QVariant *value = info.find(element.key);
            EXPECT_TRUE(value && !value->toString().isEmpty()) << element.key.toStdString();
        }
        EXPECT_EQ(tree(shipped), tree(anew));
        for (const QString &file : tree(anew).filter(u"@2x."_s))
            expectSolid(decodedJpeg(contents(shipped + u'/' + file)),
                        decodedJpeg(contents(anew + u'/' + file)).pixelColor(0, 0), 3);
    }
}
