#include "HSColorPicker/ColorPickerClasses/HSColorPickerView.h"

#include "platform/CALayer.h"
#include "support/Canvas.h"
#include "support/WheelChecks.h"

#include <QTest>

#include <functional>

namespace
{
class Recorder : public HSColorPickerViewDelegate
{
public:
    void colorPickerDidChangeSelection(HSColorPickerView &view) override
    {
        ++changes;
        blackness = view.findChild<QQuickItem *>("_brightnessLayer")->opacity();
    }

    int changes = 0;
    double blackness = -1.0; // as drawn when the last report came
};

class HSColorPickerViewTest : public testing::Test
{
protected:
    HSColorPickerViewTest() { view->setDelegate(recorder); }

    Canvas canvas{{400, 400}, 2.0};
    std::shared_ptr<Recorder> recorder = std::make_shared<Recorder>();
    std::unique_ptr<HSColorPickerView> view{HSColorPickerView::initWithFrame({5, 7, 200, 300})};
};

void expectNear(QPointF actual, QPointF expected)
{
    EXPECT_NEAR(actual.x(), expected.x(), 1e-9);
    EXPECT_NEAR(actual.y(), expected.y(), 1e-9);
}

TEST_F(HSColorPickerViewTest, TouchesSelectValidPoints)
{
    const double slant = 89 * std::sqrt(0.5);
    const struct {
        QPointF touch, inSquare, inCircle;
    } cases[] = {
        {{120.5, 40.25}, {120.5, 40.25}, {120.5, 40.25}},
        {{0, 0}, {11, 11}, {100 - slant, 100 - slant}},
        {{1000, 1000}, {189, 189}, {100 + slant, 100 + slant}},
        {{15, 185}, {15, 185}, {100 - slant, 100 + slant}}, // in the square, outside the circle
        {{100, -300}, {100, 11}, {100, 11}},
        {{100, 199}, {100, 189}, {100, 189}},
        {{-1, 100}, {11, 100}, {11, 100}},
        {{189, 100}, {189, 100}, {189, 100}},
    };
    for (const auto &[touch, inSquare, inCircle] : cases) {
        SCOPED_TRACE(testing::Message() << touch.x() << ", " << touch.y());
        view->setSelection(touch);
        expectNear(view->selection(), inSquare);
        view->setCropToCircle(true); // which pulls the selection in
        expectNear(view->selection(), inCircle);
        view->setSelection(touch);
        expectNear(view->selection(), inCircle);
        view->setCropToCircle(false); // which does not put it back
        expectNear(view->selection(), inCircle);
    }
    view->setCropToCircle(true);
    view->setFrame({0, 0, 300, 200}); // only the first frame was made square
    // Below the middle but above the half width: mirrored.
    const double far = 139 / std::hypot(140, 40);
    expectNear(view->validPointForTouch({290, 140}), {150 + 140 * far, 100 - 40 * far});
}

TEST_F(HSColorPickerViewTest, StandsViewsWithoutAnActiveArea)
{
    view->setParentItem(canvas.contentItem());
    for (const double side : {0.0, 0.2, 10.0, 22.0}) {
        for (const bool circle : {false, true}) {
            view->setFrame({0, 0, side, side});
            view->setCropToCircle(circle);
            EXPECT_TRUE(view->activeAreaShape().isEmpty());
            for (const double at : {-5.0, 11.0, 50.0, std::nan("")})
                view->setSelection({at, at});
            canvas.draw();
            EXPECT_GE(view->selectionColor().components().red, 0.0);
        }
    }
    view->setFrame({0, 0, 200, 200});
    view->setSelection({50, 60});
    EXPECT_EQ(view->selection(), QPointF(50, 60));
}

TEST_F(HSColorPickerViewTest, KeepsBrightnessAndOpacityWhereverThePointGoes)
{
    view->setSelectionColor(UIColor::colorWithHue(0.5, 1, 0.25, 0.5));
    expectNear(view->selection(), {11, 100});
    view->setSelection({189, 100});
    EXPECT_EQ(view->selectionColor().components(), (UIColor::RGBA{0.25, 0, 0, 0.5}));
    EXPECT_EQ(view->colorAtPoint({100, 100}).components(), (UIColor::RGBA{.25, .25, .25, .5}));
    EXPECT_EQ(view->selection(), QPointF(189, 100));
}

TEST_F(HSColorPickerViewTest, ReportsEachChangeOnceItIsDrawn)
{
    const QRectF large(0, 0, 210, 210), small(3, 4, 150, 150);
    const auto ask = [this] {
        view->colorAtPoint({20, 20});
        view->stateForPoint({20, 20});
        view->validPointForTouch({0, 0});
    };
    const struct {
        const char *what;
        int reports;
        std::function<void()> act;
    } cases[] = {
        {"frame without a window", 0, [&] { view->setFrame(large); }},
        {"window", 1, [&] { view->setParentItem(canvas.contentItem()); }},
        {"frame", 1, [&] { view->setFrame(small); }},
        {"same frame", 1, [&] { view->setFrame(small); }},
        {"width alone", 1, [&] { view->setWidth(160); }},
        {"brightness", 1, [&] { view->setBrightness(0.5); }},
        {"same brightness", 1, [&] { view->setBrightness(0.5); }},
        {"opacity", 1, [&] { view->setOpacity(0.5); }},
        {"colour", 1, [&] { view->setSelectionColor(UIColor::blackColor()); }},
        {"point", 1, [&] { view->setSelection(QPointF(40, 50)); }},
        {"circle", 1, [&] { view->setCropToCircle(true); }},
        {"square", 1, [&] { view->setCropToCircle(false); }},
        {"loupe", 0, [&] { view->setShowLoupe(false); }},
        {"questions", 0, ask},
        {"another window's child", 0, [&] { view->setParentItem(nullptr); }},
        {"change without a window", 1, [&] { view->setBrightness(1.0); }},
    };
    for (const auto &[what, reports, act] : cases) {
        recorder->changes = 0;
        act();
        EXPECT_EQ(recorder->changes, reports) << what;
        EXPECT_TRUE(!reports || recorder->blackness == 1.0 - view->brightness()) << what;
    }
    recorder.reset();
    view->setBrightness(0.3); // the delegate is gone
    view->setDelegate(std::make_shared<HSColorPickerViewDelegate>());
    view->setBrightness(0.4); // and this one wants nothing
}

TEST_F(HSColorPickerViewTest, TakesItsScaleAndPictureFromTheWindow)
{
    EXPECT_EQ(view->scale(), 0.0);
    EXPECT_EQ(view->rep(), nullptr);
    view->setParentItem(canvas.contentItem());
    EXPECT_EQ(view->scale(), 2.0);
    EXPECT_EQ(view->rep(), HSColorPickerView::bitmapForDiameter(200, 2, 11, true)) << "shared";
    Canvas sharper({400, 400}, 3.0);
    view->setParentItem(sharper.contentItem());
    EXPECT_EQ(view->rep()->bitmapSize(), (BMPoint{600, 600}));
    view->setParentItem(nullptr);
    EXPECT_EQ(view->scale(), 0.0);
}

// The wheel as the software renderer draws it: a view of 120 points that fills its window.
struct Picture {
    explicit Picture(double scale) : canvas({120, 120}, scale) {}

    Canvas canvas;
    HSColorPickerView &view =
        *HSColorPickerView::initWithFrame({0, 0, 120, 120}, canvas.contentItem());
};

TEST(HSColorPickerViewPictureTest, ShowsTheReferencePixels)
{
    for (const double scale : {1.0, 2.0, 3.0}) {
        SCOPED_TRACE(scale);
        Picture picture(scale);
        WheelChecks::expectWheels(picture.canvas.window(), picture.view,
                                  [&] { return picture.canvas.draw(); });
    }
}

TEST(HSColorPickerViewPictureTest, ShowsTransparencyAsACheckerboardOverTheDiscAsWell)
{
    Picture shown(2.0);
    shown.view.setSelection({60, 60});
    shown.view.setOpacity(0.0);
    const QImage &picture = shown.canvas.draw();
    for (const QPoint point : {QPoint(3, 5), {57, 57}, {63, 63}, {13, 11}}) // grey squares
        EXPECT_TRUE(WheelChecks::isNear(picture.pixel(point * 2), qRgb(128, 128, 128)));
    for (const QPoint point : {QPoint(13, 5), {63, 57}, {57, 63}, {3, 11}})
        EXPECT_EQ(picture.pixel(point * 2), qRgb(255, 255, 255));
    EXPECT_EQ(picture.pixel(120 - 16, 120), qRgb(0, 0, 0)) << "the ring stays on top";
}

TEST(HSColorPickerViewPictureTest, AMoveIsDrawnAtOnceAndLeavesTheWheelAlone)
{
    Picture shown(2.0);
    HSColorPickerView &view = shown.view;
    view.setBrightness(0.5);
    view.setShowLoupe(false);
    const auto pictures = [&view] {
        QList<qint64> keys;
        for (const char *name : {"_gradientLayer", "_brightnessLayer", "_opacityLayer"})
            keys += view.findChild<CALayer *>(name)->pixels().cacheKey();
        return keys;
    };
    const QList<qint64> before = pictures();
    shown.canvas.draw();
    QTest::mousePress(&shown.canvas.window(), Qt::LeftButton, {}, {30, 30});
    for (const QPoint point : {QPoint(30, 30), {40, 80}, {90, 60}}) {
        QTest::mouseMove(&shown.canvas.window(), point);
        const QImage &picture = shown.canvas.draw();
        EXPECT_EQ(picture.pixel(point * 2), view.selectionColor().qColor().rgb())
            << "the disc lies above the blackness";
        EXPECT_EQ(picture.pixel(point * 2 + QPoint(16, 0)), qRgb(0, 0, 0));
        view.setPosition(view.position() + QPointF(1, 0)); // neither does moving the view
        view.setPosition(view.position() - QPointF(1, 0));
    }
    QTest::mouseRelease(&shown.canvas.window(), Qt::LeftButton, {}, {90, 60});
    EXPECT_EQ(pictures(), before);
    view.setCropToCircle(true);
    EXPECT_NE(pictures(), before);
}
} // namespace
