#include "bitmap/BitmapDrawManipulator.h"

#include "bitmap/Pictures.h"

using namespace Pictures;

TEST(BitmapDrawManipulatorTest, DrawsImagesFromTheTopLeft)
{
    const auto rep = ANImageBitmapRep::initWithSize({20, 10});
    const QImage before = rep->CGImage();
    rep->drawImage(quarters(4, 4), QRectF(2, 1, 8, 4));
    const QImage image = rep->CGImage();
    EXPECT_NE(image.cacheKey(), before.cacheKey());
    EXPECT_EQ(image.pixel(2, 1), red);
    EXPECT_EQ(image.pixel(9, 1), green);
    EXPECT_EQ(image.pixel(2, 4), blue);
    EXPECT_EQ(image.pixel(9, 4), white);
    for (const QPoint outside : {QPoint(1, 1), QPoint(2, 0), QPoint(10, 1), QPoint(2, 5)})
        EXPECT_EQ(image.pixel(outside), clear);

    QImage glass(1, 1, QImage::Format_ARGB32_Premultiplied);
    glass.fill(QColor(0, 0, 0, 128));
    rep->drawImage(glass, QRectF(0, 0, 20, 10));
    EXPECT_EQ(qAlpha(rep->CGImage().pixel(0, 0)), 128);
    EXPECT_NEAR(qRed(rep->CGImage().pixel(2, 1)), 127, 1) << "drawn over, not in place of";
}

TEST(BitmapDrawManipulatorTest, FillsEllipsesFromTheTopLeft)
{
    const struct {
        QRectF frame;
        QPoint outside;
    } cases[] = {
        {{0, 0, 40, 20}, {1, 1}},
        {{0, 0, 10, 10}, {5, 12}},
        {{30, 12, 8, 8}, {34, 10}},
    };
    for (const auto &[frame, outside] : cases) {
        const auto rep = ANImageBitmapRep::initWithSize({40, 20});
        rep->drawEllipseInFrame(frame, UIColor::colorWithRed(1, 0, 0, 1));
        const QImage image = rep->CGImage();
        EXPECT_EQ(image.pixel(frame.center().toPoint()), red);
        EXPECT_EQ(image.pixel(outside), clear);
        EXPECT_NEAR(coverage(image), M_PI / 4 * frame.width() * frame.height(), 5.0);
    }
    const auto rep = ANImageBitmapRep::initWithSize({8, 8});
    rep->drawEllipseInFrame(QRectF(0, 0, 8, 8), UIColor::colorWithPatternImage(quarters(8, 8)));
    EXPECT_EQ(rep->CGImage().pixel(2, 2), red);
    EXPECT_EQ(rep->CGImage().pixel(5, 5), white);
}
