#include "HSColorPicker/ColorPickerClasses/BGHSLoupeLayer.h"

#include "HSColorPicker/LoupePixels.h"
#include "support/Canvas.h"

#include <QPainter>

#include <cmath>
#include <functional>
#include <gtest/gtest.h>
#include <utility>

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
    void show()
    {
        touchDown();
        popUp.setCurrentTime(350);
    }
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
    EXPECT_TRUE(isAttached());
    EXPECT_TRUE(loupe.isRunningInitialAnimation());
    EXPECT_EQ(popUp.duration(), 350);
    // Eased times at a quarter, a half and three quarters of the way: 0.1292, 0.5, 0.8708.
    const struct {
        int time;
        double scale, tolerance;
    } steps[] = {{0, 0.1, 1e-9}, {87, 0.6, 0.01}, {175, 1.175, 1e-3}, {263, 0.98, 0.01}};
    for (const auto &step : steps) {
        popUp.setCurrentTime(step.time);
        EXPECT_NEAR(loupe.scale(), step.scale, step.tolerance) << step.time;
        EXPECT_EQ(loupe.mapToItem(&wheel, QPointF(48.5, 97)), loupe.position() + QPointF(48.5, 97))
            << "it grows out of the finger";
    }
    popUp.setCurrentTime(350);
    EXPECT_EQ(loupe.scale(), 1.0);
    EXPECT_FALSE(loupe.isRunningInitialAnimation());
    EXPECT_EQ(shrinking.state(), QAbstractAnimation::Stopped);

    loupe.disappear();
    EXPECT_EQ(shrinking.duration(), 100);
    shrinking.setCurrentTime(25);
    EXPECT_NEAR(loupe.scale(), 1.0 - 0.99 * 0.1292, 1e-3);
    EXPECT_TRUE(isAttached());
    shrinking.setCurrentTime(100);
    EXPECT_FALSE(isAttached());
    EXPECT_EQ(loupe.scale(), 1.0);
    loupe.disappear();
    EXPECT_EQ(shrinking.state(), QAbstractAnimation::Stopped) << "there is nothing to shrink";

    show();
    loupe.disappearAnimated(false);
    EXPECT_FALSE(isAttached());
    EXPECT_EQ(shrinking.state(), QAbstractAnimation::Stopped);
}

TEST_F(BGHSLoupeLayerTest, AShortTouchLetsThePopUpEnd)
{
    for (const bool animated : {true, false}) {
        touchDown();
        popUp.setCurrentTime(100);
        loupe.disappearAnimated(animated);
        EXPECT_TRUE(loupe.isReadyToDismiss());
        EXPECT_EQ(popUp.state(), QAbstractAnimation::Running);
        popUp.setCurrentTime(350);
        EXPECT_TRUE(isAttached());
        EXPECT_EQ(shrinking.state(), QAbstractAnimation::Running);
        shrinking.setCurrentTime(100);
        EXPECT_FALSE(isAttached());
    }
}

TEST_F(BGHSLoupeLayerTest, ATouchDownStartsOverFromEveryState)
{
    const struct {
        int appearedFor;
        bool isReleased;
    } states[] = {{0, false}, {200, false}, {350, false}, {0, true}, {200, true}, {350, true}};
    for (const auto &[appearedFor, isReleased] : states) {
        SCOPED_TRACE(testing::Message() << appearedFor << ", " << isReleased);
        touchDown();
        popUp.setCurrentTime(appearedFor);
        if (isReleased)
            loupe.disappear();
        shrinking.setCurrentTime(50);
        touchDown();
        EXPECT_TRUE(isAttached());
        EXPECT_TRUE(loupe.isRunningInitialAnimation());
        EXPECT_FALSE(loupe.isReadyToDismiss());
        EXPECT_EQ(loupe.scale(), 0.1);
        popUp.setCurrentTime(350);
        EXPECT_EQ(shrinking.state(), QAbstractAnimation::Stopped);
        EXPECT_EQ(loupe.scale(), 1.0);
        loupe.disappearAnimated(false);
    }
}

TEST_F(BGHSLoupeLayerTest, InterruptedShrinkingLeavesItTiny)
{
    show();
    loupe.disappear();
    shrinking.setCurrentTime(40);
    shrinking.stop();
    EXPECT_TRUE(isAttached());
    EXPECT_EQ(loupe.scale(), 0.01);
    show();
    EXPECT_EQ(loupe.scale(), 1.0);

    touchDown();
    loupe.disappear();
    popUp.setCurrentTime(100);
    popUp.stop(); // an interrupted pop-up has ended as well
    EXPECT_EQ(shrinking.state(), QAbstractAnimation::Running);
}

TEST_F(BGHSLoupeLayerTest, DrawsOnlyWhenACellChanges)
{
    loupe.setContentsScale(2.0);
    show();
    canvas.draw();
    qint64 shown = loupe.pixels().cacheKey();
    const auto isRedrawn = [&] {
        loupe.setNeedsDisplay();
        canvas.draw();
        return std::exchange(shown, loupe.pixels().cacheKey()) != shown;
    };
    EXPECT_FALSE(isRedrawn());
    wheel.setSelection({100, 90});
    EXPECT_TRUE(isRedrawn());
    wheel.setBrightness(0.0);
    EXPECT_TRUE(isRedrawn());
    wheel.setSelection({60, 120});
    EXPECT_FALSE(isRedrawn()) << "black is black everywhere";
    loupe.setContentsScale(3.0);
    EXPECT_TRUE(isRedrawn());
    EXPECT_EQ(loupe.pixels().size(), QSize(291, 291));
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
void expectSquares(const QImage &pane, int perSide, double margin,
                   const std::function<QRgb(int, int)> &expected)
{
    const double side = 85.0 / perSide;
    for (int row = 0; row < perSide; ++row) {
        for (int column = 0; column < perSide; ++column) {
            for (const double inset : {margin, side - margin}) {
                const double x = side * column - 42.5 + inset;
                const double y = side * row - 42.5 + inset;
                if (std::hypot(x, y) < 39.0) {
                    EXPECT_EQ(pixelAt(pane, x, y), expected(row, column))
                        << row << ", " << column << " at scale " << pane.devicePixelRatio();
                }
            }
        }
    }
}

/// Of any two bytes; pictures of the same premultiplied format and size.
int largestDifference(const QImage &a, const QImage &b)
{
    int largest = 0;
    for (qsizetype i = 0; i < a.sizeInBytes(); ++i)
        largest = std::max(largest, std::abs(a.constBits()[i] - b.constBits()[i]));
    return largest;
}

TEST_F(BGHSLoupeLayerTest, MagnifiesTheColoursAroundTheSelection)
{
    wheel.setSelection({90, 150});
    for (const double scale : {1.0, 2.0, 3.0}) {
        const QImage pane = paneAtScale(scale, loupe);
        expectSquares(pane, 5, 0.1, [this](int row, int column) {
            return rgbOf(wheel.colorAtPoint({90.0 - 37 + 15 * column, 150.0 - 37 + 15 * row}));
        });
        EXPECT_EQ(qAlpha(pixelAt(pane, 0, -42.4)), 0);
        EXPECT_EQ(qAlpha(pixelAt(pane, 30, 30)), 0);
    }
}

TEST_F(BGHSLoupeLayerTest, ShowsACheckerboardThroughTransparency)
{
    wheel.setOpacity(0.0);
    const QImage pane = paneAtScale(2.0, loupe);
    expectSquares(pane, 6, 1.0, [](int row, int column) {
        return (row + column) % 2 ? qRgb(128, 128, 128) : qRgb(255, 255, 255);
    });
    BGHSLoupeLayer lone;
    EXPECT_EQ(paneAtScale(2.0, lone), pane) << "without a wheel there are no cells";
}

TEST_F(BGHSLoupeLayerTest, TheRimIsGlass)
{
    for (const double scale : {1.0, 2.0, 3.0}) {
        loupe.setContentsScale(scale);
        const QImage rim = loupe.loupeImage();
        EXPECT_EQ(rim.deviceIndependentSize(), QSizeF(97, 97));
        for (const QPointF side : {QPointF(1, 0), {0, 1}, {-1, 0}, {0, -1}})
            EXPECT_EQ(pixelAt(rim, 41 * side.x(), 41 * side.y()), 0xFFFFFFFF);
        // The frame: one point wide, on whole points, half a point up and left of the cell.
        for (const double at : {-9.0, 8.0}) {
            EXPECT_EQ(pixelAt(rim, at, 0), 0xFF000000) << at;
            EXPECT_EQ(pixelAt(rim, 0, at), 0xFF000000) << at;
        }
        for (const double at : {-9.6, -8.4, 7.4, 8.6})
            EXPECT_EQ(qAlpha(pixelAt(rim, at, -4)), 0) << at;
    }
    const QImage rim = loupe.loupeImage();
    EXPECT_GT(qAlpha(pixelAt(rim, 0, 44)), 150) << "the shadow falls downward";
    EXPECT_GT(qAlpha(pixelAt(rim, 0, 44)), qAlpha(pixelAt(rim, 0, 47)));
    EXPECT_LT(qAlpha(pixelAt(rim, 0, -44)), 10);
    EXPECT_LT(qAlpha(pixelAt(rim, -48.3, -48.3)), 2);
    // The crescent fades from 0.65 at y = -42.5 to 0.15 at -14.9, and ends on an arc that peaks at
    // -21.25; the glow fades from 0.5 at (0, 34) to nothing 34 points away.
    const struct {
        double x, y, alpha;
    } lights[] = {{0, -38, 0.568},  {0, -25, 0.333}, {30, -20, 0.242}, {0, -20, 0}, {0, -12, 0},
                  {0, 33.9, 0.498}, {17, 34, 0.25},  {0, 12, 0.176},   {25, -10, 0}};
    for (const auto &light : lights) {
        const QRgb pixel = pixelAt(rim, light.x, light.y);
        EXPECT_NEAR(qAlpha(pixel) / 255.0, light.alpha, 0.02) << light.x << ", " << light.y;
        EXPECT_EQ(qRed(pixel), qAlpha(pixel)) << "white, premultiplied";
    }
}

// The picture that the window gets is put together in a quicker way than the one to compare with.
TEST_F(BGHSLoupeLayerTest, TheWindowShowsPaneAndRim)
{
    for (const double scale : {1.0, 1.5, 2.0, 3.0}) {
        for (const double opacity : {1.0, 0.4}) {
            BGHSLoupeLayer layer;
            layer.setContentsScale(scale);
            const QImage rim = layer.loupeImage();
            wheel.setOpacity(opacity);
            layer.appearInColorPicker(wheel);
            canvas.draw();
            const QImage expected = paneAtScale(scale, layer, rim);
            EXPECT_EQ(layer.pixels().size(), expected.size());
            EXPECT_LE(largestDifference(layer.pixels(), expected), 2)
                << "at scale " << scale << ", opacity " << opacity;
        }
    }
}
} // namespace
