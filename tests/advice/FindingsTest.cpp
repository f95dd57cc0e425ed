#include "advice/Findings.h"

#include "support/ThemeFixture.h"
#include "theme/ElementPicture.h"
#include "theme/ThemeDocument.h"

#include <QDir>

using Kind = Finding::Kind;

namespace
{
struct FindingsTest : ThemeFixture {
    /// The element list that ships, with these choices.
    static ElementDataSource shipped(const QMap<QString, QString> &choices)
    {
        PropertyDictionary saved;
        for (auto choice = choices.begin(); choice != choices.end(); ++choice)
            saved.setValue(choice.key(), choice.value());
        return ElementDataSource::loadWith(TINTLOOM_SOURCE_RESOURCES, &saved);
    }

    /// "element/on" of each, and the eyes for those of look-alikes.
    static std::string found(const ElementDataSource &elements)
    {
        QStringList texts;
        for (const Finding &finding : findings(elements)) {
            EXPECT_LT(finding.ratio, finding.threshold);
            EXPECT_EQ(finding.eyes == Eyes::Normal, finding.kind == Kind::Contrast);
            const auto &records = elements.tableSource();
            texts += records[size_t(finding.element)].key + '/' + records[size_t(finding.on)].key +
                     (finding.eyes == Eyes::Normal ? "" : QString::number(int(finding.eyes)));
        }
        return texts.join(" ").toStdString();
    }
    static std::string found(const QMap<QString, QString> &choices)
    {
        return found(shipped(choices));
    }
};
} // namespace

TEST_F(FindingsTest, NothingThatShipsHasAny)
{
    EXPECT_EQ(found(QMap<QString, QString>()), "");
    QStringList themes =
        QDir(TINTLOOM_SOURCE_RESOURCES).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    themes.removeOne("images");
    ASSERT_EQ(themes.size(), 14);
    for (const QString &theme : themes) {
        const auto info = PropertyList::readDictionary(
            contents(TINTLOOM_SOURCE_RESOURCES "/" + theme + "/Info.plist"));
        const auto elements = ElementDataSource::loadWith(TINTLOOM_SOURCE_RESOURCES, &*info);
        EXPECT_EQ(found(elements), "") << theme.toStdString();
    }
}

TEST_F(FindingsTest, SaysWhatIsHardToReadOnWhatIsSeenThere)
{
    // The worse end of a gradient, once; the other balloons are still all right.
    EXPECT_EQ(found({{"green-balloon-colors_2", "#106030"}}),
              "balloon-text-color/green-balloon-colors_2");
    EXPECT_EQ(found({{"green-balloon-colors_1", "#106030"}, {"green-balloon-colors_2", "#145020"}}),
              "balloon-text-color/green-balloon-colors_2");
    // One that is left fills the balloon, with neither the phone picks a tone by what is around.
    EXPECT_EQ(found({{"green-balloon-colors_1", ""}, {"green-balloon-colors_2", "#106030"}}),
              "balloon-text-color/green-balloon-colors_2");
    EXPECT_EQ(found({{"green-balloon-colors_1", ""}, {"green-balloon-colors_2", ""}}), "");
    EXPECT_EQ(found({{"green-balloon-colors_1", ""},
                     {"green-balloon-colors_2", ""},
                     {"balloon-text-color", "#FFFFFF"}}),
              "balloon-text-color/green-balloon-colors_1 balloon-text-color/blue-balloon-colors_1 "
              "balloon-text-color/gray-balloon-colors_1");
    // Black balloons of which nearly nothing is seen are what is behind them.
    for (const QString key : {"green-balloon-colors_1", "green-balloon-colors_2"})
        EXPECT_EQ(found({{key, "#00000008"}}), "") << key.toStdString();
    EXPECT_EQ(found({{"green-balloon-colors_1", "#00000008"},
                     {"conversation-background-color", "#000000"},
                     {"timestamp-color", "#FFFFFF"}}),
              "balloon-text-color/green-balloon-colors_1");
    // Text fades as well; pictures have no transparency, and without a colour they are black.
    EXPECT_EQ(found({{"composer-text-color", "#00000060"}}),
              "composer-text-color/composer-background-color");
    EXPECT_EQ(found({{"list-background-image", "#FFF6E501"}}), "");
    EXPECT_EQ(found({{"list-background-image", ""},
                     {"list-name-color", "#FFFFFF"},
                     {"list-preview-color", ""},
                     {"unread-name-color", ""}}),
              "");
    // A mark needs less than text.
    EXPECT_EQ(found({{"unread-indicator-image", "#CC6A00"}}), "");
    EXPECT_EQ(found({{"unread-indicator-image", "#FFC090"}}),
              "unread-indicator-image/list-background-image");
}

TEST_F(FindingsTest, SaysWhatOnlySomeEyesTellApart)
{
    const auto alike = [](const QString &name, const QString &unread) {
        return found({{"list-background-image", "#FFFFFF"},
                      {"list-name-color", name},
                      {"unread-name-color", unread}});
    };
    const std::string pair = "unread-name-color/list-name-color";
    EXPECT_EQ(alike("#A02020", "#106E0C"), pair + '2');
    EXPECT_EQ(alike("#203060", "#203062"), "") << "nobody tells them apart by colour";
    EXPECT_EQ(alike("#203060", "#B03000"), "");
    EXPECT_EQ(alike("#A02020", ""), "") << "meant to be the same";
    // Balloons are known by either end.
    const QMap<QString, QString> balloons{{"green-balloon-colors_1", "#C8E0A0"},
                                          {"green-balloon-colors_2", "#C8E0A0"},
                                          {"blue-balloon-colors_1", "#FCC4A4"},
                                          {"blue-balloon-colors_2", "#FCC4A4"}};
    EXPECT_EQ(found(balloons), "green-balloon-colors_1/blue-balloon-colors_12");
    auto parted = balloons;
    parted["blue-balloon-colors_2"] = "#9AD0FF";
    EXPECT_EQ(found(parted), "");
}

TEST_F(FindingsTest, RemediesMendTheFindingAndKeepTheHue)
{
    const auto elements =
        shipped({{"list-name-color", "#FF8080"}, {"timestamp-color", "#00000020"}});
    const auto all = findings(elements);
    ASSERT_EQ(all.size(), 2U);
    for (const Finding &finding : all) {
        ThemeColors colors(elements);
        const ReadableColors found = remediesFor(finding, colors);
        ASSERT_TRUE(found.darker);
        colors.setColor(finding.element, found.darker);
        EXPECT_EQ(findings(colors).size(), 1U);
        EXPECT_EQ(nearerOf(found, 0xFF000000), found.darker);
    }
    EXPECT_EQ(qAlpha(*remediesFor(all[0], ThemeColors(elements)).darker), 255)
        << "no colour reads that is hardly there";
}

TEST_F(FindingsTest, OddGroundsAreNoneOrSaid)
{
    const auto keysLogged = [this](const QByteArray &grounds) {
        putElements({on(element("text", "\"#777\""), grounds), element("ground", "\"#888\""),
                     element("choice", "null", R"({"A":1})", "1")});
        const auto elements = load();
        EXPECT_EQ(elements.status(), ElementDataSource::Status::Loaded);
        EXPECT_EQ(elements.tableSource()[0].on.size(), findings(elements).size());
        return log.contains("text") ? log : QString();
    };
    EXPECT_EQ(keysLogged("null"), "");
    EXPECT_EQ(keysLogged("{\"text\":[]}"), "");
    EXPECT_EQ(keysLogged("{\"text\":[\"ground\"]}"), "");
    for (const QByteArray odd :
         {"5", "[\"ground\"]", "{\"loud\":[\"ground\"]}", "{\"text\":\"ground\"}",
          "{\"text\":[\"text\"]}", "{\"mark\":[\"none\"]}", "{\"text\":[null]}",
          "{\"large\":[\"choice\"]}"}) {
        EXPECT_NE(keysLogged(odd), "") << odd.toStdString();
        EXPECT_TRUE(load().tableSource()[0].on.empty()) << odd.toStdString();
    }
    // Each is behind the other, and both behind themselves.
    putElements({on(element("a", "\"#FF000040\""), R"({"text":["b"],"behind":["c"]})"),
                 on(element("b", "\"#00FF0040\""), R"({"mark":["c"],"behind":["a"]})"),
                 on(element("c", "\"#0000FF40\""), R"({"large":["a"],"behind":["b"]})")});
    EXPECT_EQ(findings(load()).size(), 3U);
    // Named twice, under whatever kinds, is one finding, of the kind that asks most.
    for (const QByteArray twice : {R"({"mark":["b"],"text":["b"]})", R"({"text":["b","b"]})",
                                   R"({"behind":["b"],"text":["b"]})"}) {
        putElements({on(element("a", "\"#888\""), twice), element("b", "\"#FFF\"")});
        ASSERT_EQ(found(load()), "a/b") << twice.toStdString();
        EXPECT_EQ(findings(load())[0].threshold, 4.5) << twice.toStdString();
    }
    // Of two with one key the theme shows the later.
    putElements({on(element("a", "\"#FFF\""), R"({"text":["b"]})"), element("b", "\"#FFF\""),
                 on(element("a", "\"#000\""), R"({"text":["b"]})"), element("b", "\"#111\"")});
    EXPECT_EQ(found(load()), "a/b");
}

TEST_F(FindingsTest, APictureCountsByNearlyItsWorstPlaces)
{
    putElements({element("list-background-image", "\"#000000FF\""),
                 on(element("text", "\"#FFFFFFFF\""), R"({"text":["list-background-image"]})")});
    const auto foundOn = [this](double whiteShare) {
        QImage image(640, 1136, QImage::Format_RGB32);
        image.fill(Qt::black);
        for (int y = 0; y < int(1136 * whiteShare); ++y)
            for (int x = 0; x < image.width(); ++x)
                image.setPixel(x, y, 0xFFFFFFFF);
        const QString path = folder.filePath("picture.png");
        EXPECT_TRUE(image.save(path));
        ThemeDocument document(load());
        document.changeAll({{0, *ElementPicture::read(path).picture->choice()}}, "Change");
        return found(document.elements());
    };
    EXPECT_EQ(foundOn(0.03), "");
    EXPECT_EQ(foundOn(0.2), "text/list-background-image") << "although its mean is dark";
}
