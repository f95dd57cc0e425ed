#include "HSColorPicker/window/HSColorPickerView.h"

#include "HSColorPicker/ColorPickerClasses/HSBitmapCache.h"
#include "HSColorPicker/window/BGHSLoupeLayer.h"
#include "support/Canvas.h"
#include "support/WheelChecks.h"

#include <QLineF>
#include <QTest>

#include <future>

namespace
{
class Recorder : public HSColorPickerViewDelegate
{
public:
    void colorPickerDidChangeSelection(HSColorPickerView &view) override
    {
        ++changes;
        EXPECT_EQ(view.findChild<CALayer *>("_brightnessLayer")->opacity(), 1 - view.brightness())
            << "reported before it is drawn";
    }
    int taken() { return std::exchange(changes, 0); }

    int changes = 0;
};

class HSColorPickerViewTest : public testing::Test
{
protected:
    HSColorPickerViewTest() { view->setDelegate(recorder); }

    /// Puts the view into the window, which it fills.
    void show() { view->setParentItem(canvas.contentItem()); }
    CALayer *layer(const char *name) { return view->findChild<CALayer *>(name); }

    Canvas canvas{{200, 200}, 2.0};
    std::shared_ptr<Recorder> recorder = std::make_shared<Recorder>();
    std::unique_ptr<HSColorPickerView> view{HSColorPickerView::initWithFrame({0, 0, 200, 300})};
};

void expectNear(QPointF actual, QPointF expected)
{
    EXPECT_LT(QLineF(actual, expected).length(), 1e-9) << expected.x() << ", " << expected.y();
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
    };
    for (const auto &[touch, inSquare, inCircle] : cases) {
        view->setSelection(touch);
        expectNear(view->selection(), inSquare);
        view->setCropToCircle(true); // which pulls the selection in
        expectNear(view->selection(), inCircle);
        view->setSelection(touch);
        expectNear(view->selection(), inCircle);
        view->setCropToCircle(false);
    }
    view->setCropToCircle(true);
    view->setActiveAreaShape({});
    expectNear(view->validPointForTouch({120, 100}), {189, 100});
    view->setFrame({0, 0, 300, 200}); // only the first frame was made square
    // Below the middle but above the half width: mirrored.
    const double far = 139 / std::hypot(140, 40);
    expectNear(view->validPointForTouch({290, 140}), {150 + 140 * far, 100 - 40 * far});
}

TEST_F(HSColorPickerViewTest, StandsViewsWithoutAnActiveArea)
{
    show();
    for (const double side : {0.2, 10.0, 22.0}) {
        view->setFrame({0, 0, side, side});
        for (const bool circle : {false, true}) {
            view->setCropToCircle(circle);
            EXPECT_TRUE(view->activeAreaShape().isEmpty()) << side << ", " << circle;
            view->setSelection({std::nan(""), 50});
            canvas.draw();
            EXPECT_GE(view->selection().x() + view->selectionColor().components().red, 0.0);
        }
    }
}

TEST_F(HSColorPickerViewTest, ReportsEachChangeOnceItIsDrawn)
{
    show();
    EXPECT_EQ(recorder->taken(), 1);
    view->setFrame({3, 4, 150, 150});
    EXPECT_EQ(recorder->taken(), 1) << "for position and size";
    EXPECT_EQ(view->activeAreaShape().boundingRect(), QRectF(11, 11, 128, 128));
    view->setBrightness(0.25);
    EXPECT_EQ(recorder->taken(), 1);
    view->setCropToCircle(true);
    view->setCropToCircle(false);
    EXPECT_EQ(recorder->taken(), 2);
    view->colorAtPoint({20, 20});
    view->setParentItem(nullptr);
    EXPECT_EQ(recorder->taken(), 0);
    EXPECT_EQ(view->scale(), 0.0);
}

TEST_F(HSColorPickerViewTest, PreparesWhatAViewWillAskFor)
{
    using View = HSColorPickerView;
    std::promise<void> returned;
    HSBitmapCache::shared().backgroundQueue().async([&] {
        const auto status = returned.get_future().wait_for(std::chrono::seconds(20));
        EXPECT_EQ(status, std::future_status::ready) << "somebody was kept waiting";
    });
    View::prepareForDiameter(61);
    View::prepareForDiameterPadding(61, 7);
    View::prepareForDiameterScale(61, 2);
    View::prepareForDiameterScalePadding(61, 3, 5);
    returned.set_value();
    // This one waits for itself, and so for what came before it.
    View::prepareForDiameterScalePaddingInBackground(61, 2, 3, false);
    const std::pair<double, double> prepared[] = {{1, 11}, {1, 7}, {2, 11}, {3, 5}, {2, 3}};
    for (const auto &[scale, padding] : prepared)
        EXPECT_EQ(View::bitmapForDiameter(61, scale, padding, false),
                  View::bitmapForDiameter(61, scale, padding, false))
            << "what is not stored is made anew each time: " << scale << ", " << padding;
}

TEST_F(HSColorPickerViewTest, ShowsTheReferencePixels)
{
    for (const double scale : {1.0, 2.0, 3.0}) {
        SCOPED_TRACE(scale);
        Canvas window({120, 120}, scale);
        auto &wheel = *HSColorPickerView::initWithFrame({0, 0, 120, 120}, window.contentItem());
        WheelChecks::expectWheels(window, wheel);
        EXPECT_EQ(wheel.rep(), HSColorPickerView::bitmapForDiameter(120, scale, 11, false));
    }
}

TEST_F(HSColorPickerViewTest, ShowsTransparencyAsACheckerboardOverTheDiscAsWell)
{
    show();
    view->setSelection({100, 100});
    view->setOpacity(0.5);
    EXPECT_NEAR(qGreen(canvas.draw().pixel(194, 194)), 190, 3)
        << "grey over white, each half; a disc above them would be lighter";
    view->setOpacity(0.0);
    const QImage &picture = canvas.draw();
    for (const QPoint grey : {QPoint(3, 5), {95, 97}, {13, 11}}) {
        const QPoint white = grey + QPoint(10, 0);
        EXPECT_TRUE(WheelChecks::isNear(picture.pixel(grey * 2), qRgb(128, 128, 128)));
        EXPECT_EQ(picture.pixel(white * 2), qRgb(255, 255, 255));
    }
}

TEST_F(HSColorPickerViewTest, AMoveIsDrawnAtOnceAndLeavesTheWheelAlone)
{
    show();
    view->setBrightness(0.5);
    const auto wheel = [&] { return layer("_gradientLayer")->pixels().cacheKey(); };
    const qint64 before = wheel();
    for (const QPoint point : {QPoint(40, 80), {90, 60}}) {
        view->setSelection(point);
        const QImage &picture = canvas.draw();
        EXPECT_EQ(picture.pixel(point * 2), view->selectionColor().qColor().rgb())
            << "the disc lies above the blackness";
        EXPECT_EQ(picture.pixel(point * 2 + QPoint(16, 0)), qRgb(0, 0, 0));
    }
    EXPECT_EQ(view->brightness(), 0.5);
    view->setSelection({40.3, 80.7});
    for (const char *mark : {"_selectionColorLayer", "_selectionLayer"})
        EXPECT_EQ(layer(mark)->position(), QPointF(29.5, 69.5)) << "on whole pixels";
    EXPECT_EQ(wheel(), before);
    view->setCropToCircle(true);
    EXPECT_NE(wheel(), before);
}

TEST_F(HSColorPickerViewTest, LayersStayInTheViewAndTakeItsScale)
{
    show();
    view->setFrame({0, 0, 200, 100});
    view->setSelection({100, 100});
    EXPECT_EQ(canvas.draw().pixel(200 - 16, 198), qRgb(0, 0, 0));
    EXPECT_EQ(canvas.draw().pixel(200 - 16, 202), 0U) << "the ring is cut off";
    QTest::mousePress(&canvas.window(), Qt::LeftButton, {}, {30, 30});
    auto *loupe = view->findChild<BGHSLoupeLayer *>();
    canvas.draw();
    EXPECT_EQ(loupe->pixels().width(), 97 * 2);
    Canvas sharper({200, 200}, 3.0);
    loupe->appearInColorPicker(*view);
    view->setParentItem(sharper.contentItem()); // which leaves it popping up
    sharper.draw();
    EXPECT_EQ(loupe->pixels().width(), 97 * 3);
    view->setParentItem(nullptr);
}
} // namespace
