#include "bitmap/BitmapDrawManipulator.h"

#include "bitmap/Pictures.h"

using namespace Pictures;

TEST(BitmapDrawManipulatorTest, DrawsImagesFromTheTopLeft)
{
    const auto rep = ANImageBitmapRep::initWithSize({20, 10});
    rep->drawImage(quarters(4, 4), QRectF(2, 1, 8, 4));
    EXPECT_EQ(corners(rep->CGImage().copy(2, 1, 8, 4)), coloured);
    EXPECT_EQ(coverage(rep->CGImage()), 8 * 4);

    QImage glass(1, 1, QImage::Format_ARGB32_Premultiplied);
    glass.fill(QColor(0, 0, 0, 128));
    rep->drawImage(glass, QRectF(0, 0, 20, 10));
    EXPECT_EQ(qAlpha(rep->CGImage().pixel(0, 0)), 128);
    EXPECT_NEAR(qRed(rep->CGImage().pixel(2, 1)), 127, 1) << "drawn over, not in place of";
}

TEST(BitmapDrawManipulatorTest, FillsEllipsesFromTheTopLeft)
{
    const auto rep = ANImageBitmapRep::initWithSize({40, 20});
    rep->CGImage(); // a snapshot that is not to be the last
    rep->drawEllipseInFrame(QRectF(30, 2, 8, 8), UIColor::colorWithRed(1, 0, 0, 1));
    EXPECT_EQ(rep->CGImage().pixel(34, 3), red);
    EXPECT_EQ(rep->CGImage().pixel(30, 2), clear);
    EXPECT_NEAR(coverage(rep->CGImage()), M_PI / 4 * 8 * 8, 2.0);

    rep->drawEllipseInFrame(QRectF(0, 0, 8, 8), UIColor::colorWithPatternImage(quarters(8, 8)));
    EXPECT_EQ(rep->CGImage().pixel(2, 2), red);
    EXPECT_EQ(rep->CGImage().pixel(5, 5), white);
}
