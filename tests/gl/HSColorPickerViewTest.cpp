// Wheel, loupe and slider as OpenGL draws them. Their pictures are the same on either renderer.
#include "HSColorPicker/ColorPickerClasses/HSColorPickerView.h"

#include "HSColorPicker/ColorPickerClasses/BGHSLoupeLayer.h"
#include "HSColorPicker/ColorPickerClasses/HSOpacitySlider.h"
#include "HSColorPicker/LoupePixels.h"
#include "support/WheelChecks.h"

#include <QTest>

TEST(HSColorPickerViewGLTest, ShowsTheReferencePixelsAndLoupeAndSlider)
{
    QQuickWindow window;
    window.resize(200, 200);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    ASSERT_EQ(QQuickWindow::graphicsApi(), QSGRendererInterface::OpenGL);
    auto *view = HSColorPickerView::initWithFrame({0, 0, 200, 200}, window.contentItem());
    WheelChecks::expectWheels(window, *view, [&] { return window.grabWindow(); });

    view->setBrightness(1.0);
    HSOpacitySlider slider(window.contentItem());
    slider.setFrame({0, 170, 200, 30});
    slider.setValue(0.5f);
    QTest::mousePress(&window, Qt::LeftButton, {}, {60, 120});
    auto *loupe = view->findChild<BGHSLoupeLayer *>();
    loupe->findChild<QAbstractAnimation *>("cp_l_appear")->setCurrentTime(350);
    for (const QPoint point : {QPoint(90, 110), {140, 130}}) {
        QTest::mouseMove(&window, point);
        const QImage picture = window.grabWindow();
        const QPointF middle = loupe->mapToScene(QPointF(48.5, 48.5));
        EXPECT_EQ(pixelAt(picture, middle - QPointF(4, 4)),
                  rgbOf(view->colorAtPoint(view->selection() + QPointF(-7, -7))));
        EXPECT_EQ(pixelAt(picture, middle + QPointF(41, 0)), 0xFFFFFFFF) << "the ring";
        EXPECT_EQ(pixelAt(picture, middle - QPointF(9, 0)), 0xFF000000) << "the frame";
        EXPECT_EQ(pixelAt(picture, {100, 185}), 0xFFFFFFFF) << "the knob";
        EXPECT_EQ(pixelAt(picture, {40, 185}), 0xFF007AFF) << "the track";
        EXPECT_NEAR(qRed(pixelAt(picture, {1, 171})), 127, 3) << "a dark square";
    }
}
