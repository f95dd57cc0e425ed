#include "platform/foundation/PropertyList.h"

#include <QDateTime>

#include <cmath>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace
{
PropertyDictionary dictionaryOf(std::initializer_list<PropertyDictionary::Entry> entries)
{
    PropertyDictionary dictionary;
    for (const auto &[key, value] : entries)
        dictionary.setValue(key, value);
    return dictionary;
}

QByteArray xmlList(const QByteArray &inside)
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\">" + inside +
           "</plist>";
}

/// A binary list of up to 255 objects, the first of them the root.
QByteArray binaryList(const QList<QByteArray> &objects)
{
    QByteArray bytes = "bplist00";
    QByteArray offsets;
    for (const QByteArray &object : objects) {
        offsets += char(bytes.size() >> 8);
        offsets += char(bytes.size() & 0xff);
        bytes += object;
    }
    const qsizetype table = bytes.size();
    const QByteArray zeros(7, '\0');
    return bytes + offsets + QByteArray(6, '\0') + '\2' + '\1' + zeros + char(objects.size()) +
           QByteArray(8, '\0') + QByteArray(6, '\0') + char(table >> 8) + char(table & 0xff);
}
} // namespace

TEST(PropertyListTest, EveryTypeComesBackInOrder)
{
    const QDateTime date(QDate(2024, 2, 29), QTime(12, 30, 15), Qt::UTC);
    const auto dictionary = dictionaryOf({
        {u"z"_s, u"#FF00AAFF"_s},
        {u"empty"_s, u""_s},
        {u"text"_s, u" <&>\"' ]]>\n\t\U0001F3A8 ä "_s},
        {u"<key & more>"_s, true},
        {u"false"_s, false},
        {u"least"_s, std::numeric_limits<qint64>::min()},
        {u"most"_s, std::numeric_limits<qint64>::max()},
        {u"more"_s, quint64(std::numeric_limits<qint64>::max()) + 1},
        {u"all bits"_s, std::numeric_limits<quint64>::max()},
        {u"tenth"_s, 0.1},
        {u"tiny"_s, 5e-324},
        {u"infinite"_s, -std::numeric_limits<double>::infinity()},
        {u"data"_s, QByteArray("\0\xff\x80", 3)},
        {u"date"_s, date},
        {u"first date"_s, QDateTime(QDate(1, 1, 1), QTime(0, 0), Qt::UTC)},
        {u"last date"_s, QDateTime(QDate(9999, 12, 31), QTime(23, 59, 59), Qt::UTC)},
        {u"array"_s, QVariantList{u"a"_s, 2LL, QVariantList{}, QVariantMap{{u"k"_s, false}}}},
        {u"a"_s, QVariantMap{{u"y"_s, 1LL}, {u"x"_s, 1.5}}},
    });
    const auto restored = PropertyList::readDictionary(PropertyList::writeDictionary(dictionary));
    ASSERT_TRUE(restored);
    EXPECT_EQ(restored->entries(), dictionary.entries());
    for (const auto &[key, value] : dictionary.entries())
        EXPECT_EQ(restored->find(key)->typeId(), value.typeId()) << key.toStdString();
}

TEST(PropertyListTest, LeavesOutWhatXmlCannotCarry)
{
    const QString nasty = u"a\u0001\u001b"_s + QChar(0xd800) + u"<b>"_s + QChar(0xffff);
    const auto dictionary = dictionaryOf(
        {{nasty, nasty}, {u"null"_s, QVariant()}, {u"list"_s, QVariantList{QVariant()}}});
    const auto plain = dictionaryOf({{u"a<b>"_s, u"a<b>"_s}, {u"list"_s, QVariantList{}}});
    EXPECT_EQ(PropertyList::writeDictionary(dictionary), PropertyList::writeDictionary(plain));
}

TEST(PropertyListTest, ReadsOnlyDictionaries)
{
    const QByteArray good = xmlList("<dict><key>k</key><integer>-7</integer></dict>");
    const QByteArray binary = binaryList({"\xd1\x01\x02", "\x51k", "\x51v"});
    const QByteArray manyArrays = QByteArray("<array></array>").repeated(2000);
    for (const QByteArray &bytes :
         {good, "\xEF\xBB\xBF" + good, binary,
          xmlList("<!-- <dict> --><dict><!-- </dict> --></dict>"),
          xmlList("<dict><key>k</key><string><![CDATA[<dict>]]></string></dict>"),
          xmlList("<dict><key>k</key><array>" + manyArrays + "</array></dict>")})
        EXPECT_TRUE(PropertyList::readDictionary(bytes)) << bytes.left(120).toStdString();
    for (const QByteArray &bytes :
         {xmlList("<array></array>"), QByteArray(), QByteArray("not a property list"),
          good.left(good.size() / 2), binary.chopped(3), binaryList({"\xd1\x01\x09", "\x51k"}),
          QByteArray("bplist00")})
        EXPECT_FALSE(PropertyList::readDictionary(bytes)) << bytes.toStdString();
    EXPECT_EQ(PropertyList::readDictionary(good)->entries()[0].second, QVariant(-7LL));
}

// Each of these exhausts the stack or the memory of a reader that trusts it.
TEST(PropertyListTest, RefusesHostileLists)
{
    const auto nested = [](const QByteArray &open, const QByteArray &close) {
        constexpr int depth = 100'000;
        return xmlList("<dict><key>k</key>" + open.repeated(depth) + close.repeated(depth) +
                       "</dict>");
    };
    QList<QByteArray> doubling{"\xd1\x01\x02", "\x51k"};
    for (char next = 3; next < 40; ++next)
        doubling.append(QByteArray("\xa2") + next + next);
    doubling.append("\x51v");
    const std::pair<const char *, QByteArray> cases[] = {
        {"deep", nested("<array>", "</array>")},
        {"deep, closers in comments", nested("<array><!-- </array> -->", "</array>")},
        {"deep, closers in attributes", nested("<array a=\"</array>\">", "</array>")},
        {"deep, closers in instructions", nested("<array><?x </array> ?>", "</array>")},
        {"deep, closers between instructions",
         nested("<array><?x \"?></array><?y \"?>", "</array>")},
        {"deep dictionaries", nested("<dict><key>k</key>", "</dict>")},
        {"shared references", binaryList(doubling)},
        {"key with a zero", binaryList({"\xd1\x01\x02", QByteArray("\x53\x61\0b", 4), "\x51v"})},
        {"itself", binaryList({QByteArray("\xd1\x01\x00", 3), "\x51k"})},
    };
    for (const auto &[name, bytes] : cases)
        EXPECT_FALSE(PropertyList::readDictionary(bytes)) << name;
}

TEST(PropertyListTest, EqualityIsOfTypeAndValue)
{
    const qint64 large = (1LL << 53) + 1; // no double
    const std::tuple<QVariant, QVariant, bool> cases[] = {
        {1LL, 1.0, true},
        {large, double(large), false},
        {std::numeric_limits<qint64>::max(), 9223372036854775808.0, false},
        {std::numeric_limits<quint64>::max(), -1LL, false},
        {quint64(1), 1LL, true},
        {quint64(1) << 63, 9223372036854775808.0, true},
        {std::numeric_limits<quint64>::max(), 18446744073709551616.0, false},
        {1LL, u"1"_s, false},
        {1LL, true, false},
        {0.0, false, false},
        {u""_s, QVariant(), false},
        {QVariant(), QVariant::fromValue(nullptr), true},
        {QVariantList{1LL}, QVariantList{1.0}, true},
        {QVariantMap{{u"k"_s, 1LL}}, QVariantMap{{u"k"_s, 1.0}}, true},
        {QVariantMap{{u"k"_s, 1LL}}, QVariantMap{{u"l"_s, 1LL}}, false},
    };
    for (const auto &[left, right, equal] : cases) {
        EXPECT_EQ(PropertyList::isEqual(left, right), equal)
            << PropertyList::textOf(left).toStdString();
        EXPECT_EQ(PropertyList::isEqual(right, left), equal);
    }
}
