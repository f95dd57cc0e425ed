#include "preview/PreviewPalette.h"

#include "support/ThemeFixture.h"
#include "theme/ThemePackageWriter.h"

#include <QColor>

namespace
{
using enum PreviewElement;

PreviewPalette paletteOf(const QByteArrayList &elements, const PropertyDictionary *saved = nullptr,
                         const std::optional<PreviewPalette::Passing> &passing = {})
{
    const auto source = ElementDataSource::parse("[" + elements.join(",") + "]", "document", saved);
    EXPECT_EQ(source.status(), ElementDataSource::Status::Loaded);
    return PreviewPalette::fromElements(source, passing);
}

PreviewPalette withOption(const QByteArray &key, const QByteArray &value)
{
    return paletteOf({element(key, "null", "{\"A\":1}", value)});
}
} // namespace

TEST(PreviewPalette, ReadsColorsAndOptionsAsTheyAreReadElsewhere)
{
    const auto palette = paletteOf(
        {element("timestamp-color", "\"F0A\""), element("composer-text-color", "\"#12345678\""),
         element("send-button-color", "\"\""), element("list-name-color", "\"no colour\""),
         element("somebody-elses-color", "\"#FFF\"")});
    EXPECT_EQ(palette.color(Timestamp), 0xFFFF00AA);
    EXPECT_EQ(palette.color(ComposerText), 0x78123456U);
    EXPECT_EQ(palette.color(SendButton), std::nullopt);
    EXPECT_EQ(palette.color(ListName), 0x00000000U); // has a colour: none to be seen
    EXPECT_EQ(palette.color(SenderName), std::nullopt);
    EXPECT_EQ(palette, paletteOf({element("composer-text-color", "\"12345678\""),
                                  element("list-name-color", "\"00000000\""),
                                  element("timestamp-color", "\"#FF00AA\"")}));

    using Corners = PreviewPalette::Corners;
    EXPECT_EQ(withOption("balloon-corner-style", "\"soft\"").corners, Corners::Soft);
    EXPECT_EQ(withOption("balloon-corner-style", "\"square\"").corners, Corners::Square);
    EXPECT_EQ(withOption("balloon-corner-style", "\"wavy\"").corners, Corners::Round);
    EXPECT_EQ(withOption("message-text-size", "18").textSize, 18);
    EXPECT_EQ(withOption("message-text-size", "\"14\"").textSize, 14);
    EXPECT_EQ(withOption("message-text-size", "-3").textSize, 16);
    EXPECT_EQ(withOption("message-text-size", "1e300").textSize, 32);
    EXPECT_FALSE(withOption("list-shows-photos", "false").showsPhotos);
    EXPECT_TRUE(withOption("list-shows-photos", "true").showsPhotos);
    EXPECT_FALSE(withOption("list-shows-photos", "null").showsPhotos); // written as "0"
    EXPECT_TRUE(PreviewPalette().showsPhotos);
}

TEST(PreviewPalette, OfSeveralElementsWithOneKeyThatCountsWhichAPackageWouldHold)
{
    const QByteArrayList elements = {
        element("timestamp-color", "\"#111111\""), element("timestamp-color", "\"#222222\""),
        element("timestamp-color", "null"), element("sender-name-color", "\"#333333\""),
        element("sender-name-color", "\"\"")};
    const auto dictionary = themeDictionary(
        ElementDataSource::parse("[" + elements.join(",") + "]", "document", nullptr));
    ASSERT_EQ(dictionary.find("timestamp-color")->toString(), "#222222");
    const PreviewPalette palette = paletteOf(elements);
    EXPECT_EQ(palette.color(Timestamp), 0xFF222222);
    EXPECT_EQ(palette.color(SenderName), std::nullopt);

    const auto passing = [&](int index, const QString &text) {
        return paletteOf(elements, nullptr, PreviewPalette::Passing{index, text}).color(Timestamp);
    };
    EXPECT_EQ(passing(0, "#FF0000"), 0xFF222222) << "it would not be in the package";
    EXPECT_EQ(passing(1, "#FF0000"), 0xFFFF0000);
    EXPECT_EQ(passing(2, "#FF0000"), 0xFFFF0000);
    EXPECT_EQ(passing(1, ""), std::nullopt) << "removed for a while";
}

TEST(PreviewPalette, APackageIsShownAsTheEditorWouldShowIt)
{
    const QString resources = TINTLOOM_SOURCE_RESOURCES;
    for (const QString name : {"Midnight", "High Contrast"}) {
        const auto info =
            PropertyList::readDictionary(contents(resources + '/' + name + "/Info.plist"));
        ASSERT_TRUE(info);
        const auto source = ElementDataSource::loadWith(resources, &*info);
        const auto palette = PreviewPalette::fromElements(source);
        // Saved and laid over the list again, nothing changes.
        const PropertyDictionary saved = themeDictionary(source);
        EXPECT_EQ(palette,
                  PreviewPalette::fromElements(ElementDataSource::loadWith(resources, &saved)));
        EXPECT_EQ(palette.color(Timestamp),
                  QColor(info->find("timestamp-color")->toString().left(7)).rgba());
        EXPECT_EQ(palette.textSize, info->find("message-text-size")->toInt());
        EXPECT_NE(palette,
                  PreviewPalette::fromElements(ElementDataSource::loadWith(resources, nullptr)));
    }
}
