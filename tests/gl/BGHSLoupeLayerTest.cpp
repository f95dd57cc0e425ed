#include "HSColorPicker/ColorPickerClasses/BGHSLoupeLayer.h"

#include "HSColorPicker/ColorPickerClasses/HSOpacitySlider.h"
#include "HSColorPicker/LoupePixels.h"

#include <QQuickWindow>
#include <QTest>

#include <gtest/gtest.h>

// The pictures of loupe and slider are the same on either renderer; here is what OpenGL shows.
TEST(BGHSLoupeLayerGlTest, LoupeAndSlidersShow)
{
    ASSERT_EQ(QQuickWindow::graphicsApi(), QSGRendererInterface::OpenGL);
    QQuickWindow window;
    window.resize(280, 420);
    HSColorPickerView wheel(window.contentItem());
    wheel.setFrame({20, 120, 240, 240});
    HSOpacitySlider slider(window.contentItem());
    slider.setFrame({20, 370, 240, 30});
    slider.setValue(0.5f);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));

    QTest::mousePress(&window, Qt::LeftButton, {}, {90, 300});
    auto *loupe = wheel.findChild<BGHSLoupeLayer *>();
    loupe->findChild<QAbstractAnimation *>("cp_l_appear")->setCurrentTime(350);
    for (const QPoint point : {QPoint(190, 280), {140, 170}}) {
        QTest::mouseMove(&window, point);
        const QImage picture = window.grabWindow();
        const QPointF middle = loupe->mapToScene(QPointF(48.5, 48.5));
        EXPECT_EQ(pixelAt(picture, middle - QPointF(4, 4)),
                  rgbOf(wheel.colorAtPoint(wheel.selection() + QPointF(-7, -7))));
        EXPECT_EQ(pixelAt(picture, middle + QPointF(41, 0)), 0xFFFFFFFF) << "the ring";
        EXPECT_EQ(pixelAt(picture, middle - QPointF(9, 0)), 0xFF000000) << "the frame";
        EXPECT_EQ(pixelAt(picture, {140, 385}), 0xFFFFFFFF) << "the knob";
        EXPECT_EQ(pixelAt(picture, {60, 385}), 0xFF007AFF) << "the track";
        EXPECT_NEAR(qRed(pixelAt(picture, {21, 371})), 127, 3) << "a dark square";
    }
    QTest::mouseRelease(&window, Qt::LeftButton, {}, {140, 170});
}
