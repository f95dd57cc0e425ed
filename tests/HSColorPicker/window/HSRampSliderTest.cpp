#include "HSColorPicker/window/HSRampSlider.h"

#include "HSColorPicker/window/HSBrightnessSlider.h"
#include "HSColorPicker/window/HSOpacitySlider.h"
#include "support/Canvas.h"

#include <QPainter>

#include <gtest/gtest.h>

namespace
{
TEST(HSRampSliderTest, BothTakeTheBrightnessOfTheWheelAndMoveTheirOwnProperty)
{
    auto wheel = std::make_unique<HSColorPickerView>();
    wheel->setSelectionColor(UIColor::colorWithWhite(0.3, 0.8));
    HSBrightnessSlider brightness;
    HSOpacitySlider opacity;
    for (HSRampSlider *slider : std::initializer_list<HSRampSlider *>{&brightness, &opacity}) {
        slider->setColorPicker(wheel.get());
        EXPECT_EQ(slider->value(), 0.3f);
        slider->setValue(0.6f);
        EXPECT_EQ(std::pair(wheel->brightness(), wheel->opacity()), std::pair(0.3, 0.8))
            << "only a person's movements are passed on";
    }
    brightness.moveTo(0.25f);
    opacity.moveTo(0.7f);
    EXPECT_EQ(wheel->brightness(), 0.25);
    EXPECT_EQ(wheel->opacity(), double(0.7f)) << "a single's value, widened";
    brightness.setColorPicker(nullptr);
    EXPECT_EQ(brightness.value(), 0.25f);
    brightness.moveTo(0.9f); // reaches nobody
    EXPECT_EQ(wheel->brightness(), 0.25);
    wheel.reset();
    opacity.moveTo(0.1f); // nor does this
}

TEST(HSRampSliderTest, RampsRunFromTheSlidersLeftEndToTheWidthOfTheRectangle)
{
    HSBrightnessSlider brightness;
    HSOpacitySlider opacity;
    for (const QRectF rect : {QRectF(0, 0, 200, 30), {50, 10, 100, 20}}) {
        QImage solid(200, 30, QImage::Format_ARGB32_Premultiplied);
        solid.fill(Qt::transparent);
        QImage sheer = solid;
        QPainter solidPainter(&solid), sheerPainter(&sheer);
        brightness.drawRect(solidPainter, rect);
        opacity.drawRect(sheerPainter, rect);
        for (const QPoint at : {QPoint(1, 0), {49, 15}, {50, 9}, {50, 29}, {99, 10}, {100, 15}}) {
            const bool isDrawn = rect.contains(QPointF(at)) && at.x() < rect.width();
            const double value = isDrawn ? 255.0 * (at.x() + 0.5) / rect.width() : 0.0;
            EXPECT_EQ(qAlpha(solid.pixel(at)), isDrawn ? 255 : 0);
            EXPECT_NEAR(qRed(solid.pixel(at)), value, 1.5);
            EXPECT_NEAR(qAlpha(sheer.pixel(at)), value, 1.5);
            EXPECT_NEAR(qRed(sheer.pixel(at)), value * value / 255.0, 2.5) << "premultiplied";
        }
    }
}

TEST(HSRampSliderTest, OpacityLiesOnACheckerboardOfTheWindowsScale)
{
    HSOpacitySlider slider;
    slider.setFrame({0, 0, 200, 30});
    slider.setValue(1.0f); // away with the knob
    for (const int scale : {1, 3}) {
        Canvas canvas({200, 60}, scale);
        slider.setParentItem(canvas.contentItem());
        const QImage picture = canvas.draw();
        // Squares of 8 points, mid-grey in the corner, under a veil that is hardly there yet.
        const std::pair<QPoint, int> squares[] = {
            {{1, 0}, 127}, {{1, 7}, 127}, {{1, 8}, 254}, {{8, 0}, 247}};
        for (const auto &[point, grey] : squares)
            EXPECT_NEAR(qRed(picture.pixel(point * scale)), grey, 6)
                << point.x() << ", " << point.y() << " at scale " << scale;
        slider.setParentItem(nullptr);
        EXPECT_EQ(slider.backgroundColor().patternImage().size(), QSize(16, 16) * scale);
        const HSOpacitySlider madeThere(canvas.contentItem());
        EXPECT_EQ(madeThere.backgroundColor().patternImage().size(), QSize(16, 16) * scale);
    }
}
} // namespace
