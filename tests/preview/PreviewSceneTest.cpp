#include "color/Compositing.h"
#include "preview/PreviewPicture.h"
#include "support/ThemeFixture.h"

#include <QHash>
#include <QPainter>

#include <algorithm>
#include <set>

namespace
{
const QString resources = TINTLOOM_SOURCE_RESOURCES;
constexpr PreviewScreen screens[] = {PreviewScreen::Conversation, PreviewScreen::MessageList};

ElementDataSource shipped(const QString &theme = {})
{
    if (theme.isEmpty())
        return ElementDataSource::loadWith(resources, nullptr);
    const auto info =
        PropertyList::readDictionary(contents(resources + '/' + theme + "/Info.plist"));
    return ElementDataSource::loadWith(resources, &info.value());
}

/// With another option for an element; the next after the one that is chosen.
PreviewPalette withOtherOption(const QString &key)
{
    PropertyDictionary saved;
    const ElementDataSource source = shipped();
    for (const ElementRecord &record : source.tableSource()) {
        if (record.key == key)
            for (const QVariant &value : *record.options)
                if (value != record.value)
                    saved.setValue(key, value);
    }
    return PreviewPalette::fromElements(ElementDataSource::loadWith(resources, &saved));
}

PreviewPalette with(PreviewPalette palette, PreviewElement element, std::optional<QRgb> color)
{
    palette.colors[size_t(element)] = color;
    return palette;
}

QImage painted(PreviewScreen screen, const PreviewPalette &palette, double scale = 1.0)
{
    return previewPicture(palette,
                          screen == PreviewScreen::Conversation ? PreviewView::Conversation
                                                                : PreviewView::MessageList,
                          scale);
}

QRgb pixelAt(const QImage &picture, QPointF point)
{
    return picture.pixel((point * picture.devicePixelRatio()).toPoint());
}

/// Points where an element is on top, and around them as well; by key.
QHash<QString, std::vector<QPointF>> pointsByKey(const PreviewScene &scene, PreviewScreen screen)
{
    constexpr size_t width = 320, height = 568;
    std::vector<QString> keys;
    for (size_t y = 0; y < height; ++y)
        for (size_t x = 0; x < width; ++x)
            keys.push_back(scene.keyAt(screen, {double(x) + 0.5, double(y) + 0.5}).value());
    QHash<QString, std::vector<QPointF>> points;
    for (size_t y = 1; y < height - 1; ++y)
        for (size_t x = 1; x < width - 1; ++x) {
            const QString *key = &keys[y * width + x];
            if (key[-1] == *key && key[1] == *key && *(key - width) == *key && key[width] == *key)
                points[*key].emplace_back(double(x) + 0.5, double(y) + 0.5);
        }
    return points;
}

std::vector<PreviewPalette> everyLayout()
{
    std::vector<PreviewPalette> layouts;
    for (const auto corners : {PreviewPalette::Corners::Round, PreviewPalette::Corners::Soft,
                               PreviewPalette::Corners::Square})
        for (const int size : {14, 16, 18, 20, 32}) // the last scrolls
            for (const bool photos : {false, true}) {
                PreviewPalette palette = PreviewPalette::fromElements(shipped());
                palette.corners = corners;
                palette.textSize = size;
                palette.showsPhotos = photos;
                layouts.push_back(palette);
            }
    return layouts;
}
} // namespace

TEST(PreviewScene, EveryShippedElementChangesWhatTheSceneSaysAndNothingElse)
{
    const ElementDataSource source = shipped();
    const PreviewPalette before = PreviewPalette::fromElements(source);
    const PreviewScene scene(before);
    ASSERT_EQ(source.tableSource().size(), size_t(previewElementCount));
    for (size_t index = 0; index < source.tableSource().size(); ++index) {
        const ElementRecord &record = source.tableSource()[index];
        SCOPED_TRACE(record.key.toStdString());
        const PreviewPalette after =
            record.isChoice() ? withOtherOption(record.key)
                              : PreviewPalette::fromElements(
                                    source, PreviewPalette::Passing{int(index), "#B0107AFF"});
        EXPECT_EQ(scene.suits(after), !record.isChoice());
        int changed = 0, strays = 0;
        for (const PreviewScreen screen : screens) {
            const QImage old = painted(screen, before), now = painted(screen, after);
            const QRegion touched = scene.touched(screen, before, after);
            const QPainterPath outline = scene.outline(screen, record.key);
            for (int y = 0; y < old.height(); ++y)
                for (int x = 0; x < old.width(); ++x)
                    if (old.pixel(x, y) != now.pixel(x, y)) {
                        ++changed;
                        strays += !touched.contains(QPoint(x, y));
                    }
            EXPECT_EQ(touched.isEmpty(), outline.isEmpty() && !record.isChoice());
        }
        EXPECT_GE(changed, 20);
        EXPECT_EQ(strays, 0);
    }
}

TEST(PreviewScene, PaintingTheTouchedRegionAloneIsAsGoodAsPaintingAll)
{
    const PreviewPalette before = PreviewPalette::fromElements(shipped("Midnight"));
    PreviewScene scene(before);
    for (const double scale : {1.0, 1.5, 2.0}) {
        for (int index = 0; index < previewElementCount; ++index) {
            const auto after = with(before, PreviewElement(index), 0x80E04010);
            for (const PreviewScreen screen : screens) {
                QImage picture = painted(screen, before, scale);
                const QRegion touched = scene.touched(screen, before, after);
                if (!touched.isEmpty()) {
                    QPainter painter(&picture);
                    scene.paint(painter, screen, after, touched);
                }
                EXPECT_EQ(picture, painted(screen, after, scale))
                    << keyOf(PreviewElement(index)).toStdString() << " at " << scale;
            }
        }
    }
    const auto balloon = with(before, PreviewElement::BlueBalloon1, 0xFFFFFFFF);
    EXPECT_TRUE(scene.touched(PreviewScreen::MessageList, before, balloon).isEmpty());
    const QRect all = scene.touched(PreviewScreen::Conversation, before, balloon).boundingRect();
    EXPECT_LT(all.width() * all.height(), 320 * 568 / 4);
}

TEST(PreviewScene, PointsOutlinesAndPartsAgreeInEveryLayout)
{
    for (const PreviewPalette &palette : everyLayout()) {
        const PreviewScene scene(palette);
        std::set<QString> shown;
        for (const PreviewScreen screen : screens) {
            double top = 0.0;
            QHash<QString, QPainterPath> outlines;
            for (const auto &[key, outline] : scene.parts(screen)) {
                shown.insert(key);
                outlines.insert(key, outline);
                EXPECT_EQ(outline, scene.outline(screen, key));
                const QRectF bounds = outline.boundingRect();
                EXPECT_TRUE(QRectF(0, 0, 320, 568).contains(bounds)) << key.toStdString();
                EXPECT_GE(bounds.top(), top) << "not in reading order: " << key.toStdString();
                top = bounds.top();
            }
            for (double y = 0.25; y < 568.0; y += 5.0)
                for (double x = 0.25; x < 320.0; x += 5.0) {
                    const auto key = scene.keyAt(screen, {x, y});
                    EXPECT_TRUE(key && outlines.value(*key).contains(QPointF(x, y)))
                        << x << ", " << y;
                }
            EXPECT_EQ(scene.keyAt(screen, {-1.0, 30.0}), std::nullopt);
            EXPECT_EQ(scene.keyAt(screen, {100.0, 569.0}), std::nullopt);
            EXPECT_TRUE(scene.outline(screen, "somebody-elses-color").isEmpty());
        }
        EXPECT_EQ(shown.size(), size_t(previewElementCount)) << palette.textSize;
        // The last balloon is seen whole, and no balloon reaches under the bars.
        const auto balloons = [&](const QString &key) {
            return scene.outline(PreviewScreen::Conversation, key).boundingRect();
        };
        const double end = balloons("blue-balloon-colors_2").bottom();
        EXPECT_TRUE(end > 300.0 && end < 520.0) << end;
        for (const QString key : {"gray-balloon-colors_1", "gray-balloon-colors_2",
                                  "green-balloon-colors_1", "balloon-text-color"})
            EXPECT_GE(balloons(key).top(), 64.0) << key.toStdString();
    }
}

TEST(PreviewScene, ColorsStandWhereTheirElementsAre)
{
    // Each in a colour of its own, so that none can stand in for another.
    PreviewPalette palette = PreviewPalette::fromElements(shipped());
    for (int index = 0; index < previewElementCount; ++index)
        palette.colors[size_t(index)] = qRgb(40 + 8 * index, 250 - 9 * index, (index * 67) % 256);
    const PreviewScene scene(palette);
    using enum PreviewElement;
    const std::pair<PreviewScreen, std::vector<PreviewElement>> plain[] = {
        {PreviewScreen::Conversation,
         {ComposerBackground, SendButton, ConversationBackground, NavigationBar, SenderName,
          Timestamp, ComposerText, BalloonText, NavigationTitle}},
        {PreviewScreen::MessageList,
         {ListBackground, NavigationBar, UnreadIndicator, ListName, ListPreview, UnreadName,
          ListSeparator, NavigationTitle}}};
    for (const auto &[screen, elements] : plain) {
        const QImage picture = painted(screen, palette, 4.0);
        const auto byKey = pointsByKey(scene, screen);
        for (const PreviewElement element : elements) {
            const auto points = byKey.value(keyOf(element));
            EXPECT_GE(points.size(), 20U) << keyOf(element).toStdString();
            const auto hits = std::ranges::count_if(points, [&](QPointF point) {
                return pixelAt(picture, point) == palette.color(element);
            });
            // Of a text's place the letters are a part.
            EXPECT_GE(hits * 25, qsizetype(points.size())) << keyOf(element).toStdString();
        }
    }
    // From one colour of a pair to the other, downwards.
    const auto twoTone = with(with(palette, GreenBalloon1, 0xFF000000), GreenBalloon2, 0xFFC8C8C8);
    const QImage picture = painted(PreviewScreen::Conversation, twoTone);
    const auto byKey = pointsByKey(scene, PreviewScreen::Conversation);
    const auto upper = byKey.value(keyOf(GreenBalloon1)), lower = byKey.value(keyOf(GreenBalloon2));
    ASSERT_FALSE(upper.empty() || lower.empty());
    const int first = qRed(pixelAt(picture, upper.front()));
    const int last = qRed(pixelAt(picture, lower.back()));
    EXPECT_LT(first, 40);
    EXPECT_GT(last, 160);
    const QImage alone =
        painted(PreviewScreen::Conversation, with(twoTone, GreenBalloon2, std::nullopt));
    EXPECT_EQ(pixelAt(alone, lower.back()), 0xFF000000);
    const QImage second =
        painted(PreviewScreen::Conversation, with(twoTone, GreenBalloon1, std::nullopt));
    EXPECT_EQ(pixelAt(second, upper.front()), 0xFFC8C8C8);
}

TEST(PreviewScene, RemovedColorsAreQuietButLegible)
{
    PreviewPalette bare = PreviewPalette::fromElements(shipped());
    bare.colors = {};
    for (const QRgb ground : {0xFFFFFFFF, 0xFF101418}) {
        for (const PreviewScreen screen : screens) {
            using enum PreviewElement;
            auto palette = with(bare, ConversationBackground, ground);
            palette = with(palette, ListBackground, ground);
            const PreviewInks inks(palette, screen);
            const auto brightness = [](QRgb rgb) { return qGray(rgb); };
            const auto expectApart = [&](PreviewInk one, PreviewInk other, int least) {
                EXPECT_GE(std::abs(brightness(inks[one].top) - brightness(inks[other].top)), least)
                    << int(one) << " on " << int(other) << " over " << ground;
            };
            expectApart(PreviewInk::BarText, PreviewInk::Bar, 150);
            if (screen == PreviewScreen::Conversation) {
                expectApart(PreviewInk::GreenText, PreviewInk::GreenBalloon, 120);
                expectApart(PreviewInk::BlueText, PreviewInk::BlueBalloon, 120);
                expectApart(PreviewInk::GrayText, PreviewInk::GrayBalloon, 120);
                expectApart(PreviewInk::GrayBalloon, PreviewInk::Ground, 15);
                expectApart(PreviewInk::SenderName, PreviewInk::Ground, 90);
                expectApart(PreviewInk::Timestamp, PreviewInk::Ground, 90);
                expectApart(PreviewInk::ComposerText, PreviewInk::Composer, 150);
                expectApart(PreviewInk::SendButton, PreviewInk::Composer, 60);
            } else {
                expectApart(PreviewInk::ListName, PreviewInk::Ground, 150);
                expectApart(PreviewInk::ListPreview, PreviewInk::Ground, 90);
                expectApart(PreviewInk::Separator, PreviewInk::Ground, 30);
                EXPECT_EQ(inks[PreviewInk::UnreadName], inks[PreviewInk::ListName]);
                EXPECT_EQ(inks[PreviewInk::UnreadMark].top, 0xFF000000); // as it is written
            }
        }
    }
}

TEST(PreviewScene, StandInsForTextFitWhatIsSeenBehind)
{
    using enum PreviewElement;
    PreviewPalette palette = PreviewPalette::fromElements(shipped());
    palette = with(with(palette, ConversationBackground, 0xFFFFFFFF), BalloonText, std::nullopt);
    const auto textOn = [&](QRgb balloon) {
        const auto both = with(with(palette, BlueBalloon1, balloon), BlueBalloon2, balloon);
        return qGray(PreviewInks(both, PreviewScreen::Conversation)[PreviewInk::BlueText].top);
    };
    EXPECT_GT(textOn(0xFF000030), 200);
    EXPECT_LT(textOn(0x60000030), 60) << "a third of dark blue over white is light";
}

TEST(PreviewScene, TransparentColorsMixWithWhatIsBehind)
{
    using enum PreviewElement;
    const PreviewPalette solid = PreviewPalette::fromElements(shipped());
    const PreviewScene scene(solid);
    const auto byKey = pointsByKey(scene, PreviewScreen::Conversation);
    const auto middleOf = [&](const PreviewPalette &palette, PreviewElement element) {
        const auto points = byKey.value(keyOf(element));
        return pixelAt(painted(PreviewScreen::Conversation, palette), points[points.size() / 2]);
    };
    const QRgb ground = *solid.color(ConversationBackground);
    EXPECT_EQ(middleOf(with(solid, ComposerBackground, 0x80000000), ComposerBackground),
              composited(0x80000000, ground));
    EXPECT_EQ(middleOf(with(solid, ComposerBackground, 0x00123456), ComposerBackground), ground);
    EXPECT_EQ(middleOf(with(solid, ConversationBackground, 0x80000000), ConversationBackground),
              composited(0x80000000, 0xFFFFFFFF));
    // A picture of the package, which has no transparency.
    const QImage list =
        painted(PreviewScreen::MessageList, with(solid, ListBackground, 0x00123456));
    EXPECT_EQ(list.pixel(2, 566), 0xFF123456);
}

TEST(PreviewPicture, HasBothScreensSideBySideAtAnyScale)
{
    const PreviewPalette palette = PreviewPalette::fromElements(shipped("Plum"));
    for (const double scale : {1.0, 1.25, 3.0}) {
        const QImage both = previewPicture(palette, PreviewView::Both, scale);
        const QImage list = painted(PreviewScreen::MessageList, palette, scale);
        EXPECT_EQ(both.size(), QSize(qRound(656 * scale), qRound(568 * scale)));
        EXPECT_EQ(list.size(), QSize(qRound(320 * scale), qRound(568 * scale)));
        EXPECT_EQ(qAlpha(both.pixel(qRound(328 * scale), 5)), 0);
        EXPECT_EQ(both.copy(qRound(336 * scale), 0, list.width(), list.height())
                      .convertToFormat(QImage::Format_RGB32),
                  list);
    }
}
