#include "HSColorPicker/ColorPickerClasses/HSRampSlider.h"

#include "HSColorPicker/ColorPickerClasses/HSBrightnessSlider.h"
#include "HSColorPicker/ColorPickerClasses/HSOpacitySlider.h"
#include "support/Canvas.h"

#include <QPainter>

#include <gtest/gtest.h>

namespace
{
QImage rampOf(HSRampSlider &slider, const QRectF &rect)
{
    QImage picture(200, 30, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    slider.drawRect(painter, rect);
    return picture;
}

TEST(HSRampSliderTest, BothTakeTheBrightnessOfTheWheelAndMoveTheirOwnProperty)
{
    HSBrightnessSlider brightness;
    HSOpacitySlider opacity;
    for (HSRampSlider *slider : std::initializer_list<HSRampSlider *>{&brightness, &opacity}) {
        auto wheel = std::make_unique<HSColorPickerView>();
        wheel->setBrightness(0.3);
        wheel->setOpacity(0.8);
        slider->setColorPicker(wheel.get());
        EXPECT_EQ(slider->value(), 0.3f);
        slider->setValue(0.6f);
        EXPECT_EQ(wheel->brightness(), 0.3) << "only a person's movements are passed on";
        EXPECT_EQ(wheel->opacity(), 0.8);
        slider->moveTo(0.7f);
        const double moved = double(0.7f); // a single's value, widened
        EXPECT_EQ(wheel->brightness(), slider == &brightness ? moved : 0.3);
        EXPECT_EQ(wheel->opacity(), slider == &opacity ? moved : 0.8);
        wheel.reset();
        slider->moveTo(0.1f); // reaches nobody
        EXPECT_EQ(slider->colorPicker(), nullptr);
    }
}

TEST(HSRampSliderTest, RampsRunFromLeftToRight)
{
    HSBrightnessSlider brightness;
    HSOpacitySlider opacity;
    for (const double width : {200.0, 100.0}) {
        const QImage grey = rampOf(brightness, {0, 0, width, 30});
        const QImage veil = rampOf(opacity, {0, 0, width, 30});
        for (const int x : {0, 25, 50, 75, 99, 150, 199}) {
            const double value = (x + 0.5) / width;
            for (const int y : {0, 29}) {
                const QColor solid = grey.pixelColor(x, y);
                const QColor sheer = veil.pixelColor(x, y);
                if (value > 1.0) {
                    EXPECT_EQ(solid.alpha() + sheer.alpha(), 0) << "nothing beyond the end";
                    continue;
                }
                EXPECT_EQ(solid.alpha(), 255);
                EXPECT_NEAR(solid.red(), 255 * value, 1.5);
                EXPECT_NEAR(sheer.alpha(), 255 * value, 1.5);
                if (x > 20) { // below, too few levels are left to tell the colour
                    EXPECT_NEAR(sheer.red(), 255 * value, 4.0);
                }
            }
        }
    }
}

TEST(HSRampSliderTest, OpacityLiesOnACheckerboardOfTheWindowsScale)
{
    for (const double scale : {1.0, 2.0, 3.0}) {
        Canvas canvas({200, 60}, scale);
        HSOpacitySlider slider(canvas.contentItem());
        slider.setFrame({0, 0, 200, 30});
        slider.setValue(1.0f);
        EXPECT_EQ(slider.backgroundColor().patternImage().size(), QSize(16, 16) * scale);
        const QImage picture = canvas.draw();
        const auto grey = [&](double x, double y) {
            return qRed(picture.pixel(int(x * scale), int(y * scale)));
        };
        // Squares of 8 points, mid-grey in the corner, under a veil that is hardly there yet.
        EXPECT_NEAR(grey(1, 0.1), 127, 3);
        EXPECT_NEAR(grey(1, 7.9), 127, 3);
        EXPECT_NEAR(grey(1, 8.1), 254, 3);
        EXPECT_NEAR(grey(7.9, 0.1), 124, 6);
        EXPECT_NEAR(grey(8.1, 0.1), 247, 6);
        EXPECT_NEAR(grey(8.1, 8.1), 122, 6);

        const qint64 pattern = slider.backgroundColor().patternImage().cacheKey();
        slider.setParentItem(nullptr);
        EXPECT_EQ(slider.backgroundColor().patternImage().cacheKey(), pattern);
    }
}
} // namespace
