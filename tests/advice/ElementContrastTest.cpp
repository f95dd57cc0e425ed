#include "advice/ElementContrast.h"

#include "support/ThemeFixture.h"

#include <random>

namespace
{
ElementDataSource parse(const QByteArrayList &elements)
{
    return ElementDataSource::parse("[" + elements.join(",") + "]", "test", nullptr);
}
} // namespace

TEST(ElementContrast, ReadsTheRelationThatMissesMost)
{
    const auto elements = parse({on(element("text", "\"#767676\""), "{\"text\":[\"ground\"]}"),
                                 on(element("mark", "\"#777\""), "{\"mark\":[\"ground\"]}"),
                                 element("ground", "\"#FFF\""), element("alone", "\"#000\"")});
    const auto read = [&](int index, QRgb color) {
        return ElementContrast(elements, index).reading(color);
    };
    using enum ElementContrast::Level;
    EXPECT_EQ(read(0, 0xFF767676)->level, ReadsWell);
    EXPECT_EQ(read(0, 0xFF888888)->level, LargeOnly);
    EXPECT_EQ(read(1, 0xFF888888)->level, ReadsWell) << "a mark needs less";
    EXPECT_EQ(read(1, 0xFFCCCCCC)->level, HardToRead);
    const auto ground = read(2, 0xFFF0F0F0);
    EXPECT_EQ(ground->other, 0) << "which needs more";
    EXPECT_EQ(ground->level, LargeOnly);
    EXPECT_FALSE(read(3, 0xFF000000));
}

TEST(ElementContrast, WhatItOffersReadsWellAfterWhateverPickingDoesToIt)
{
    const auto coarse = [](QRgb color) { // each time a little darker
        const auto fall = [](int value) { return value > 0 ? value - 1 : 0; };
        return qRgba(fall(qRed(color)), fall(qGreen(color)), fall(qBlue(color)), qAlpha(color));
    };
    std::mt19937 random(7);
    int offered = 0;
    for (int round = 0; round < 2000; ++round) {
        const auto any = [&random] {
            return "\"#" + QByteArray::number(random() & 0xFFFFFF, 16).rightJustified(6, '0') + '"';
        };
        const auto elements = parse({on(element("text", any()), "{\"text\":[\"a\",\"b\"]}"),
                                     element("a", any()), element("b", any())});
        const int index = round % 2; // a text, or a ground
        ElementContrast contrast(elements, index);
        const QRgb color = *ThemeColors(elements).color(index);
        const auto [lighter, darker] = contrast.nearest(color, coarse);
        for (const auto &found : {lighter, darker}) {
            if (!found)
                continue;
            ++offered;
            ThemeColors colors(elements);
            for (const QRgb shown : {coarse(*found), coarse(coarse(*found))}) {
                colors.setColor(index, shown);
                for (const ThemeRelation &relation : colors.relationsOf(0))
                    EXPECT_FALSE((index == 0 || relation.grounds[0] == index) &&
                                 findingOf(relation, colors))
                        << round;
            }
        }
    }
    EXPECT_GT(offered, 1000);
}
