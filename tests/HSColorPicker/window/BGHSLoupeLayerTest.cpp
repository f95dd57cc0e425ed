#include "HSColorPicker/window/BGHSLoupeLayer.h"

#include "HSColorPicker/window/LoupePixels.h"
#include "support/Canvas.h"

#include <QPainter>

#include <cmath>
#include <gtest/gtest.h>

namespace
{
// A wheel on a canvas at scale 2, touched in the middle. No event loop runs: time stands still
// unless a test sets it.
class BGHSLoupeLayerTest : public testing::Test
{
protected:
    BGHSLoupeLayerTest()
    {
        wheel.setFrame({20, 120, 240, 240});
        loupe.setColorPicker(&wheel);
    }

    /// As the wheel does at a touch down.
    void touchDown() { loupe.appearInColorPicker(wheel); }
    bool isAttached() const { return loupe.parentItem() == &wheel; }

    Canvas canvas{{280, 380}, 2.0};
    HSColorPickerView wheel{canvas.contentItem()};
    BGHSLoupeLayer loupe;
    QPropertyAnimation &popUp = *loupe.findChild<QPropertyAnimation *>("cp_l_appear");
    QPropertyAnimation &shrinking = *loupe.findChild<QPropertyAnimation *>("cp_l_disappear");
};

TEST_F(BGHSLoupeLayerTest, PopsUpAndShrinks)
{
    touchDown();
    // Eased times at a quarter, a half and three quarters of the way: 0.1292, 0.5, 0.8708.
    const std::pair<int, double> steps[] = {{0, 0.1}, {87, 0.6}, {175, 1.175}, {263, 0.98}};
    for (const auto &[time, scale] : steps) {
        popUp.setCurrentTime(time);
        EXPECT_NEAR(loupe.scale(), scale, 0.01) << time;
        EXPECT_EQ(loupe.mapToItem(&wheel, QPointF(48.5, 97)), loupe.position() + QPointF(48.5, 97))
            << "it grows out of the finger";
    }
    popUp.setCurrentTime(350);
    EXPECT_EQ(loupe.scale(), 1.0);

    loupe.disappear();
    shrinking.setCurrentTime(25);
    EXPECT_NEAR(loupe.scale(), 1.0 - 0.99 * 0.1292, 1e-3);
    loupe.disappear();
    EXPECT_EQ(shrinking.currentTime(), 0) << "once more from the beginning";
    shrinking.setCurrentTime(100);
    EXPECT_FALSE(isAttached());
    EXPECT_EQ(loupe.scale(), 1.0);
    loupe.disappear();
    EXPECT_EQ(shrinking.state(), QAbstractAnimation::Stopped) << "there is nothing to shrink";

    touchDown();
    popUp.setCurrentTime(350);
    loupe.disappearAnimated(false);
    EXPECT_FALSE(isAttached()) << "at once";
}

TEST_F(BGHSLoupeLayerTest, InterruptionsEndAPopUpAndLeaveAShrunkenLoupeTiny)
{
    touchDown();
    popUp.setCurrentTime(200);
    touchDown();
    EXPECT_EQ(loupe.scale(), 0.1) << "from the beginning";
    loupe.disappearAnimated(false);
    EXPECT_EQ(popUp.state(), QAbstractAnimation::Running) << "a pop-up ends first";
    popUp.stop();
    EXPECT_EQ(shrinking.state(), QAbstractAnimation::Running);
    shrinking.setCurrentTime(40);
    shrinking.stop();
    EXPECT_EQ(loupe.scale(), 0.01);
}

/// The pane, with another picture over it.
QImage paneAtScale(double scale, BGHSLoupeLayer &loupe, const QImage &over = {})
{
    QImage picture((QSizeF(97, 97) * scale).toSize(), QImage::Format_ARGB32_Premultiplied);
    picture.setDevicePixelRatio(scale);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    loupe.drawInContext(painter, {0, 0, 97, 97});
    painter.drawImage(0, 0, over);
    return picture;
}

/// Looks at opposite corners of each of the pane's squares, that far inside, as far as they are
/// inside the circle.
void expectSquares(const QImage &pane, int perSide, double margin, const auto &expected)
{
    const double side = 85.0 / perSide;
    for (int i = 0; i < 2 * perSide * perSide; ++i) {
        const int row = i / 2 / perSide, column = i / 2 % perSide;
        const double inset = (i % 2 ? side - margin : margin) - 42.5;
        const double x = side * column + inset, y = side * row + inset;
        EXPECT_TRUE(std::hypot(x, y) > 39.0 || pixelAt(pane, x, y) == expected(row, column))
            << row << ", " << column;
    }
}

TEST_F(BGHSLoupeLayerTest, MagnifiesTheColoursAroundTheSelectionOverACheckerboard)
{
    wheel.setSelection({90, 150});
    for (const double scale : {1.0, 2.0, 3.0}) {
        const QImage pane = paneAtScale(scale, loupe);
        expectSquares(pane, 5, 0.1, [this](int row, int column) {
            const QPointF sample(90.0 - 37 + 15 * column, 150.0 - 37 + 15 * row);
            return wheel.colorAtPoint(sample).qColor().rgba();
        });
        EXPECT_EQ(qAlpha(pixelAt(pane, 30, 30)), 0);
    }
    wheel.setOpacity(0.0);
    expectSquares(paneAtScale(2.0, loupe), 6, 1.0, [](int row, int column) {
        return (row + column) % 2 ? qRgb(128, 128, 128) : qRgb(255, 255, 255);
    });
    BGHSLoupeLayer lone;
    EXPECT_EQ(paneAtScale(2.0, lone), paneAtScale(2.0, loupe)) << "without a wheel: no cells";
}

TEST_F(BGHSLoupeLayerTest, TheRimIsGlass)
{
    for (const double scale : {1.0, 2.0, 3.0}) {
        loupe.setContentsScale(scale);
        const QImage rim = loupe.loupeImage();
        EXPECT_EQ(pixelAt(rim, 41, 0), 0xFFFFFFFF);
        EXPECT_EQ(pixelAt(rim, 0, -41), 0xFFFFFFFF);
        for (const double edge : {-42.3, -39.7, 39.7, 42.3}) { // half a point wide
            const QRgb black = pixelAt(rim, edge, 0);
            EXPECT_GT(qAlpha(black) - qRed(black), scale > 1.0 ? 240 : 110) << edge;
        }
        // The frame: one point wide, on whole points, half a point up and left of the cell.
        for (const double at : {-9.0, 8.0}) {
            EXPECT_EQ(pixelAt(rim, at, 0), 0xFF000000) << at;
            EXPECT_EQ(pixelAt(rim, 0, at), 0xFF000000) << at;
            for (const double beside : {at - 0.6, at + 0.6})
                EXPECT_EQ(qAlpha(pixelAt(rim, beside, -4)), 0) << beside;
        }
    }
    const QImage rim = loupe.loupeImage();
    EXPECT_GT(qAlpha(pixelAt(rim, 0, 44)), 150) << "the shadow falls downward";
    EXPECT_LT(qAlpha(pixelAt(rim, 0, -44)), 10);
    // The crescent fades from 0.65 at y = -42.5 to 0.15 at -14.9, and ends on an arc that peaks at
    // -21.25; the glow fades from 0.5 at (0, 34) to nothing 34 points away.
    const std::pair<QPointF, double> lights[] = {
        {{0, -38}, 0.568},  {{0, -25}, 0.333}, {{30, -20}, 0.242}, {{0, -20}, 0},
        {{0, 33.9}, 0.498}, {{17, 34}, 0.25},  {{0, 12}, 0.176},   {{25, -10}, 0}};
    for (const auto &[point, alpha] : lights) {
        const QRgb pixel = pixelAt(rim, point.x(), point.y());
        EXPECT_NEAR(qAlpha(pixel) / 255.0, alpha, 0.02) << point.x() << ", " << point.y();
        EXPECT_EQ(qRed(pixel), qAlpha(pixel)) << "white, premultiplied";
    }
}

// The picture that the window gets is put together in a quicker way than the one to compare with:
// on what it has shown before.
TEST_F(BGHSLoupeLayerTest, TheWindowShowsPaneAndRim)
{
    for (const double scale : {1.0, 1.5, 2.0, 3.0}) {
        BGHSLoupeLayer layer;
        layer.setContentsScale(scale);
        const QImage rim = layer.loupeImage();
        layer.appearInColorPicker(wheel);
        for (const double opacity : {1.0, 0.4, 1.0, 0.0, 0.4}) {
            wheel.setSelection({90.0 + 20.0 * opacity, 150.0});
            wheel.setOpacity(opacity);
            layer.setNeedsDisplay();
            canvas.draw();
            const QImage expected = paneAtScale(scale, layer, rim), shown = layer.pixels();
            ASSERT_EQ(shown.size(), expected.size());
            const auto isNear = [](uchar a, uchar b) { return std::abs(a - b) <= 2; };
            EXPECT_TRUE(std::equal(shown.constBits(), shown.constBits() + shown.sizeInBytes(),
                                   expected.constBits(), isNear))
                << opacity << " at scale " << scale;
        }
        const qint64 before = layer.pixels().cacheKey();
        layer.setNeedsDisplay();
        canvas.draw();
        EXPECT_EQ(layer.pixels().cacheKey(), before) << "drawn again for nothing";
    }
}
} // namespace
