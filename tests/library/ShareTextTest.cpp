#include "library/ShareText.h"

#include "support/ThemeFixture.h"
#include "theme/ThemePackageWriter.h"

#include <QCryptographicHash>
#include <QDateTime>

#include <random>

namespace
{
const QString shipped = QStringLiteral(TINTLOOM_SOURCE_RESOURCES);

PropertyDictionary readBack(const PropertyDictionary &info)
{
    const auto [theme, problem] = ShareText::read(ShareText::write(info, "Some name"));
    EXPECT_TRUE(theme) << problem.toStdString();
    EXPECT_EQ(theme ? theme->name : QString(), "Some name");
    return theme ? theme->info : PropertyDictionary();
}

/// Any property list value, with everything that XML can hold.
class RandomValues
{
public:
    explicit RandomValues(unsigned seed) : _random(seed) {}

    int upTo(int most) { return int(_random() % unsigned(most + 1)); }

    QString text()
    {
        static const QString letters = QString::fromUtf8("aB#0F9 \n\t<&'\"]é漢😀");
        QString text;
        for (int left = upTo(12); left > 0; --left)
            text += letters.mid(upTo(int(letters.size()) - 3), 1);
        return upTo(3) ? text : color();
    }

    QString color()
    {
        return "#" + QString::number(0x100000000LL + qint64(_random()), 16).mid(1).toUpper();
    }

    QVariant value(int depth = 0)
    {
        switch (upTo(depth < 4 ? 9 : 7)) {
        case 0:
            return upTo(1) == 1;
        case 1:
            return qint64(quint64(_random()) << 32 | _random());
        case 2:
            return std::numeric_limits<quint64>::max() - _random();
        case 3:
            return (double(_random()) - 2e9) / (1 + upTo(9));
        case 4:
            return text().toUtf8();
        case 5:
            return QDateTime::fromSecsSinceEpoch(qint64(_random()) * 50, Qt::UTC);
        case 8: {
            QVariantList list;
            for (int left = upTo(3); left > 0; --left)
                list.append(value(depth + 1));
            return list;
        }
        case 9: {
            QVariantMap map;
            for (int left = upTo(3); left > 0; --left)
                map.insert(text(), value(depth + 1));
            return map;
        }
        default:
            return text();
        }
    }

private:
    std::mt19937 _random;
};

QString sealed(QByteArray payload)
{
    payload.prepend(char(payload.size() + 4));
    payload += QCryptographicHash::hash(payload, QCryptographicHash::Sha256).first(4);
    return "tintloom:1:" + QString::fromLatin1(payload.toBase64(QByteArray::Base64UrlEncoding |
                                                                QByteArray::OmitTrailingEquals));
}
} // namespace

TEST(ShareTextTest, CarriesEveryShippedThemeInTwoHundredCharacters)
{
    const QString name = "Forty letters are a usual name for a one";
    ASSERT_EQ(name.size(), 40);
    int count = 0;
    for (const QString &folder : QDir(shipped).entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        const QString path = shipped + "/" + folder + "/Info.plist";
        const auto info = PropertyList::readDictionary(contents(path));
        if (!info)
            continue;
        ++count;
        const QString text = ShareText::write(*info, name);
        EXPECT_LE(text.size(), 200) << folder.toStdString();
        const auto theme = ShareText::read(text).theme;
        ASSERT_TRUE(theme) << folder.toStdString();
        EXPECT_EQ(theme->name, name);
        EXPECT_EQ(PropertyList::writeDictionary(
                      themeDictionary(ElementDataSource::loadWith(shipped, &theme->info))),
                  contents(path))
            << folder.toStdString();
    }
    EXPECT_EQ(count, 14);
}

TEST(ShareTextTest, HasItsBytesWhereTheFormatSays)
{
    PropertyDictionary info;
    info.setValue("name", "Tintloom");
    info.setValue("theme-version", "2");
    info.setValue("unread-name-color", "#01020304");         // the 24th element
    info.setValue("green-balloon-colors_2", "");             // the second
    info.setValue("balloon-corner-style", "square");         // the seventh
    info.setValue("message-text-size", 17LL);                // the 13th
    info.setValue("green-balloon-colors", QVariantList{""}); // follows from the two
    info.setValue("mine", "#F00");
    EXPECT_EQ(ShareText::write(info, "Ab"),
              sealed(QByteArray::fromHex("08 10 00 03 00 40" // which are there
                                         "02 02 22 01020304" // square, 17, the colour
                                         "02 4162"           // the name
                                         "01 046D696E65"     // one other, "mine"
                                         "05 0423463030"))); // a text
}

TEST(ShareTextTest, KnowsTheShippedElementsAndOptionsByTheirPlaces)
{
    const auto source = ElementDataSource::loadWith(shipped, nullptr);
    ASSERT_EQ(source.tableSource().size(), 24U);
    for (const ElementRecord &record : source.tableSource()) {
        const QVariantMap choices = record.options.value_or(QVariantMap{{"", "#AABBCCDD"}});
        for (const QVariant &choice : choices) {
            PropertyDictionary info;
            info.setValue(record.key, choice);
            EXPECT_LE(ShareText::write(info, "").size(), record.isChoice() ? 30 : 34)
                << record.key.toStdString() << " is carried by its key";
            EXPECT_EQ(readBack(info), info) << record.key.toStdString();
        }
    }
}

TEST(ShareTextTest, CarriesWhateverAPropertyListHolds)
{
    const auto source = ElementDataSource::loadWith(shipped, nullptr);
    for (unsigned seed = 0; seed < 400; ++seed) {
        RandomValues random(seed);
        PropertyDictionary info, others;
        for (const ElementRecord &record : source.tableSource())
            if (random.upTo(3))
                info.setValue(record.key, random.upTo(1) ? random.color() : random.value());
        for (int left = random.upTo(5); left > 0; --left)
            info.setValue("key " + random.text(), random.value());
        ASSERT_EQ(readBack(info), info) << seed;
    }

    PropertyDictionary deep;
    QVariant nested = "end";
    for (int i = 0; i < 80; ++i)
        nested = QVariantList{nested};
    deep.setValue("deep", nested);
    deep.setValue("shallow", "kept");
    EXPECT_EQ(ShareText::entriesLeftOut(deep), QStringList("deep"));
    EXPECT_EQ(readBack(deep).entries().size(), 1U);
    EXPECT_TRUE(readBack(deep).find("shallow"));
}

TEST(ShareTextTest, IsFoundInWhatPeopleWriteAroundIt)
{
    PropertyDictionary info;
    for (int i = 0; i < 10; ++i)
        info.setValue("colour " + QString::number(i), "#11223344");
    const QString text = ShareText::write(info, "Ours");
    QString wrapped, quoted;
    for (qsizetype i = 0; i < text.size(); i += 30) {
        wrapped += text.mid(i, 30) + "\r\n  ";
        quoted += "> > " + text.mid(i, 30) + "\n";
    }
    const QString spaced =
        QString(text).replace("tintloom:1:", "Tintloom: 1:").insert(30, QChar(0x200B));
    for (const QString &said :
         {text, wrapped, quoted, spaced, "Look: " + text + " is mine", "<" + text + ">, and so on",
          wrapped + "and good night", "No tintloom:1: is that, but this: \"" + text + "\"",
          text + text}) {
        const auto [theme, problem] = ShareText::read(said);
        ASSERT_TRUE(theme) << said.toStdString() << ": " << problem.toStdString();
        EXPECT_EQ(theme->info, info);
        EXPECT_TRUE(ShareText::isMeant(said));
    }
}

TEST(ShareTextTest, SaysWhatIsWrong)
{
    PropertyDictionary info;
    info.setValue("send-button-color", "#AABBCCDD");
    const QString text = ShareText::write(info, "Name");
    const auto problem = [](const QString &text) {
        const auto reading = ShareText::read(text);
        EXPECT_NE(reading.theme.has_value(), !reading.problem.isEmpty()) << text.toStdString();
        return reading.problem;
    };
    EXPECT_TRUE(problem("nothing but a tintloom").contains("no shared theme"));
    EXPECT_FALSE(ShareText::isMeant("nothing but a tintloom"));
    EXPECT_TRUE(problem(QString(text).replace(":1:", ":27:")).contains("version 27"));
    EXPECT_TRUE(problem(QString(ShareText::longest + 1, 'x')).contains("too long"));
    for (qsizetype end = 11; end < text.size(); ++end)
        EXPECT_TRUE(problem(text.first(end)).contains("cut off")) << end;
    for (qsizetype i = 13; i < text.size() - 1; ++i) { // the last has bits that do not count
        QString changed = text;
        changed[i] = changed[i] == 'A' ? 'B' : 'A';
        EXPECT_TRUE(problem(changed).contains("checksum")) << i;
    }

    // Sealed well by somebody who means no good.
    const QByteArray none("\0\0\0\0\0\0\0", 7); // no element, no name
    EXPECT_EQ(problem(sealed(none + '\0')), "");
    const char *const others[] = {
        "00 00",                                   // more than is said
        "01",                                      // fewer
        "01 0161",                                 // a key without a value
        "02 0161 00 0161 00",                      // a key twice
        "01 0161 0B",                              // no kind of value
        "01 0161 05 FFFFFFFF0F",                   // a text longer than all
        "01 0161 08 FFFFFFFF0F",                   // an array too
        "01 0161 02 FFFFFFFFFFFFFFFFFF02",         // more than 64 bits
        "01 0161 05 01FF",                         // no UTF-8
        "01 0161 07 FEFFFFFFFFFFFFFFFF01",         // a date of no calendar
        "01 0161 09 02 0161 00 0161 01",           // a key twice, below
        "01 1173656e642d627574746f6e2d636f6c6f72", // nothing behind it
    };
    for (const char *other : others)
        EXPECT_EQ(problem(sealed(none + QByteArray::fromHex(other))),
                  "the shared text holds no theme")
            << other;
    EXPECT_NE(problem(sealed(QByteArray::fromHex("00 20 00 00 00 00 00 00"))), "")
        << "an option has no removed form";
    EXPECT_NE(problem(sealed(QByteArray::fromHex("00 10 00 00 00 00 03 00 00"))), "")
        << "nor a fourth index where there are three";
    EXPECT_NE(problem(sealed(none + QByteArray::fromHex("01 0161") + QByteArray(80, '\x08'))), "");
}
