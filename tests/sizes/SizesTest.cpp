// Documents far beyond what anybody writes by hand: they load or are refused with a reason, and
// what loads can be saved and is the same after a restart.
#include "fuzz/FuzzTargets.h"
#include "support/ThemeFixture.h"
#include "theme/ThemePackageWriter.h"

using namespace Qt::StringLiterals;
using Status = ElementDataSource::Status;

namespace
{
constexpr qsizetype megabyte = 1024 * 1024;

ElementDataSource parse(const QByteArray &text, const PropertyDictionary *saved = nullptr)
{
    return ElementDataSource::parse(text, u"document"_s, saved);
}

QByteArray document(const QByteArrayList &elements)
{
    return "[" + elements.join(",\n") + "]";
}

/// A value of that many lists, one inside the other.
QByteArray nested(qsizetype depth)
{
    return QByteArray(depth, '[') + QByteArray(depth, ']');
}
} // namespace

TEST(SizesTest, AHundredMegabytesLoadWhole)
{
    const QByteArray longValue(10 * megabyte, 'a'), padding(900, 'x');
    const QByteArray longText = "\"" + longValue + "\"";
    QByteArrayList elements{element("color", longText), element(longValue, "\"#111\""),
                            element("choice", "null", "{\"A\":" + longText + "}", longText),
                            element("section", "\"#222\"", "null", "null", longText)};
    for (qsizetype size = 0; size < 100 * megabyte; size += elements.last().size()) {
        const QByteArray number = QByteArray::number(elements.size());
        elements.append(element("key" + number, "\"#" + number + padding + "\""));
    }
    const auto source = parse(document(elements));
    ASSERT_EQ(source.status(), Status::Loaded) << source.problem().toStdString();
    ASSERT_EQ(qsizetype(source.tableSource().size()), elements.size());
    EXPECT_EQ(source.tableSource()[0].shownColor()->size(), longValue.size());
    EXPECT_EQ(source.tableSource()[2].shownOption(), u"A"_s);
    const PropertyDictionary theme = themeDictionary(source);
    const auto saved = PropertyList::readDictionary(PropertyList::writeDictionary(theme));
    ASSERT_TRUE(saved);
    EXPECT_TRUE(*saved == theme);
    EXPECT_TRUE(themeDictionary(parse(document(elements), &*saved)) == theme);
}

TEST(SizesTest, WhatNestsTooDeepIsRefusedAndTheRestIsKept)
{
    for (const auto &[depth, status] :
         {std::pair(100, Status::Loaded), {1000, Status::Loaded}, {100'000, Status::Malformed}}) {
        const QByteArray text =
            document({element("color", nested(depth)),
                      element("choice", "null", "{\"A\":" + nested(depth) + "}", nested(depth))});
        const auto source = parse(text);
        EXPECT_EQ(source.status(), status) << depth;
        EXPECT_NO_THROW(Fuzz::elementDataSource(text)) << depth;
        EXPECT_EQ(parse(nested(depth)).tableSource().size(), 0U) << depth;
    }
}
