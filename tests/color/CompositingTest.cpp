#include "color/Compositing.h"

#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

TEST(Compositing, AgreesWithThePainter)
{
    for (const QRgb ground : {0xFF000000U, 0xFFFFFFFFU, 0xFF3C78B4U}) {
        for (int alpha = 0; alpha < 256; ++alpha) {
            const QRgb over = qRgba(255, 128, 7, alpha);
            QImage image(1, 1, QImage::Format_RGB32);
            image.fill(ground);
            QPainter(&image).fillRect(0, 0, 1, 1, QColor::fromRgba(over));
            const QRgb painted = image.pixel(0, 0), mixed = composited(over, ground);
            // It mixes what has been rounded before.
            EXPECT_NEAR(qRed(mixed), qRed(painted), 1) << alpha;
            EXPECT_NEAR(qGreen(mixed), qGreen(painted), 1) << alpha;
            EXPECT_NEAR(qBlue(mixed), qBlue(painted), 1) << alpha;
            EXPECT_EQ(qAlpha(mixed), 255);
        }
    }
    EXPECT_EQ(composited(0xFF102030, 0xFF405060), 0xFF102030);
    EXPECT_EQ(composited(0x00102030, 0x00405060), 0xFF405060);
}
