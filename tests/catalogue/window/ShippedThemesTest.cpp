// The themes that ship: made from the palettes as they stand, complete, and legible.
#include "color/Contrast.h"
#include "support/Files.h"
#include "support/Jpeg.h"
#include "theme/ColorText.h"
#include "theme/ElementDataSource.h"

#include <QProcess>
#include <QTemporaryDir>

namespace
{
const QString resources = QStringLiteral(TINTLOOM_SOURCE_RESOURCES);

/// One folder for each theme.
QStringList themesIn(const QString &folder)
{
    QStringList names = QDir(folder).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    names.removeOne("images");
    return names;
}

void expectLegible(const PropertyDictionary &info)
{
    const auto color = [&](const QString &key) {
        const QColor color = colorFromHexString(info.find(key)->toString()).qColor();
        EXPECT_EQ(color.alpha(), 255) << key.toStdString();
        return color.rgb();
    };
    // The lowest contrasts of WCAG 2.1, level AA, for text and for signs.
    const auto expectContrast = [&](const QString &one, const QString &other, double least = 4.5) {
        EXPECT_GE(contrastRatio(color(one), color(other)), least)
            << (one + " on " + other).toStdString();
    };
    const std::pair<QString, QStringList> texts[] = {
        {"composer-background-color", {"composer-text-color"}},
        {"conversation-background-color", {"sender-name-color", "timestamp-color"}},
        {"list-background-image", {"list-name-color", "list-preview-color", "unread-name-color"}},
        {"navigation-bar-color", {"navigation-title-color"}},
    };
    for (const auto &[ground, keys] : texts)
        for (const QString &key : keys)
            expectContrast(key, ground);
    for (const QString balloon : {"green", "blue", "gray"})
        for (const QString end : {"_1", "_2"})
            expectContrast("balloon-text-color", balloon + "-balloon-colors" + end);
    expectContrast("unread-indicator-image", "list-background-image", 3.0);
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

    EXPECT_EQ(contents(made.filePath("themes.plist")), contents(resources + "/themes.plist"));
    const auto source = ElementDataSource::load(resources, made.path());
    ASSERT_FALSE(source.tableSource().empty());
    EXPECT_EQ(themesIn(made.path()), themesIn(resources));
    const auto infoIn = [](const QString &folder) {
        return PropertyList::readDictionary(contents(folder + "/Info.plist")).value();
    };
    for (const QString &name : themesIn(resources)) {
        SCOPED_TRACE(name.toStdString());
        const QString shipped = resources + '/' + name, anew = made.filePath(name);
        const PropertyDictionary info = infoIn(shipped);
        EXPECT_EQ(info, infoIn(anew));
        expectLegible(info);
        for (const auto &element : source.tableSource()) {
            const QVariant *value = info.find(element.key);
            EXPECT_TRUE(value && !value->toString().isEmpty()) << element.key.toStdString();
        }
        EXPECT_EQ(tree(shipped), tree(anew));
        for (const QString &file : tree(anew).filter("@2x."))
            expectSolid(decodedJpeg(contents(shipped + '/' + file)),
                        decodedJpeg(contents(anew + '/' + file)).pixelColor(0, 0), 3);
    }
}
