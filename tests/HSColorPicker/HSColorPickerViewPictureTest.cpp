// The wheel as the software renderer draws it.
#include "HSColorPicker/ColorPickerClasses/HSColorPickerView.h"
#include "platform/CALayer.h"
#include "support/Canvas.h"
#include "support/WheelChecks.h"

#include <QTest>

namespace
{
constexpr QRgb ground = qRgb(250, 120, 10);

TEST(HSColorPickerViewPictureTest, ShowsTheReferencePixels)
{
    for (const double scale : {1.0, 2.0, 3.0}) {
        Canvas canvas({120, 120}, scale);
        canvas.window().setColor(ground);
        auto *view = HSColorPickerView::initWithFrame({0, 0, 120, 120}, canvas.contentItem());
        for (const bool circle : {false, true}) {
            view->setCropToCircle(circle);
            for (const double brightness : {1.0, 0.0}) {
                SCOPED_TRACE(testing::Message() << "scale " << scale << ", circle " << circle
                                                << ", brightness " << brightness);
                view->setBrightness(brightness);
                WheelChecks::expectWheel(canvas.draw(), *view, ground);
            }
        }
    }
}

TEST(HSColorPickerViewPictureTest, ShowsTransparencyAsACheckerboardOverTheDiscAsWell)
{
    Canvas canvas({120, 120}, 2.0);
    auto *view = HSColorPickerView::initWithFrame({0, 0, 120, 120}, canvas.contentItem());
    view->setSelection({60, 60});
    view->setOpacity(0.0);
    const QImage &picture = canvas.draw();
    for (const QPoint point : {QPoint(3, 5), {57, 57}, {63, 63}, {13, 11}}) // grey squares
        EXPECT_TRUE(WheelChecks::isNear(picture.pixel(point * 2), qRgb(128, 128, 128)));
    for (const QPoint point : {QPoint(13, 5), {63, 57}, {57, 63}, {3, 11}})
        EXPECT_EQ(picture.pixel(point * 2), qRgb(255, 255, 255));
    EXPECT_EQ(picture.pixel(120 - 16, 120), qRgb(0, 0, 0)) << "the ring stays on top";
}

TEST(HSColorPickerViewPictureTest, AMoveIsDrawnAtOnceAndLeavesTheWheelAlone)
{
    Canvas canvas({120, 120}, 2.0);
    auto *view = HSColorPickerView::initWithFrame({0, 0, 120, 120}, canvas.contentItem());
    view->setSelectionColor(UIColor::blackColor());
    view->setShowLoupe(false);
    const auto pictures = [view] {
        QList<qint64> keys;
        for (const char *name : {"_gradientLayer", "_brightnessLayer", "_opacityLayer"})
            keys += view->findChild<CALayer *>(name)->pixels().cacheKey();
        return keys;
    };
    const QList<qint64> before = pictures();
    canvas.draw();
    QTest::mousePress(&canvas.window(), Qt::LeftButton, {}, {30, 30});
    for (const QPoint point : {QPoint(30, 30), {40, 80}, {90, 60}}) {
        QTest::mouseMove(&canvas.window(), point);
        view->setBrightness(1.0);
        const QImage &picture = canvas.draw();
        const QRgb selected = view->selectionColor().qColor().rgb();
        EXPECT_EQ(picture.pixel(point * 2), selected);
        EXPECT_EQ(picture.pixel(point * 2 + QPoint(16, 0)), qRgb(0, 0, 0));
        view->setPosition(view->position() + QPointF(1, 0)); // neither does moving the view
        view->setPosition(view->position() - QPointF(1, 0));
    }
    QTest::mouseRelease(&canvas.window(), Qt::LeftButton, {}, {90, 60});
    EXPECT_EQ(pictures(), before);
    view->setCropToCircle(true);
    EXPECT_NE(pictures(), before);
}
} // namespace
