#include "preview/PreviewText.h"

#include <gtest/gtest.h>

TEST(PreviewText, KeepsToItsWidthAndLines)
{
    const QString words = "Twelve words that take several lines of a narrow column, one supposes";
    const auto laidOut = [](const QString &text, double width, int mostLines = 100) {
        return PreviewText::laidOut(text, 16, PreviewText::Weight::Normal, width, mostLines);
    };
    const PreviewText whole = laidOut(words, 120.0), two = laidOut(words, 120.0, 2);
    const PreviewText solid = laidOut(QString(words).remove(' '), 120.0);
    EXPECT_GT(whole.lines.size(), 3U);
    EXPECT_EQ(two.lines.size(), 2U);
    EXPECT_EQ(two.lines[0], whole.lines[0]);
    EXPECT_GT(solid.lines.size(), 3U) << "a word that is too long is broken";
    for (const PreviewText &text : {whole, two, solid}) {
        EXPECT_EQ(text.size.height(), 20.0 * double(text.lines.size()));
        EXPECT_LE(text.size.width(), 120.0);
        EXPECT_GT(text.size.width(), 60.0);
        double bottom = 0.0;
        for (const QGlyphRun &run : text.glyphs)
            bottom = std::max(bottom, run.boundingRect().bottom());
        EXPECT_NEAR(bottom, text.size.height(), 6.0) << "glyphs and lines part";
    }
    EXPECT_LT(laidOut("On my way", 120.0).size.width(), 110.0) << "no wider than its words";
}
