#include "theme/ElementDataSource.h"

#include "support/ThemeFixture.h"

#include <QDateTime>

using namespace Qt::StringLiterals;
using Status = ElementDataSource::Status;

namespace
{
struct ElementDataSourceTest : ThemeFixture {
    static QStringList keys(const ElementDataSource &source, int section)
    {
        QStringList keys;
        for (int row = 0; row < source.numberOfRowsInSection(section); ++row)
            keys.append(source.record(section, row).key);
        return keys;
    }
};
} // namespace

TEST_F(ElementDataSourceTest, GroupsExactlyAndSortsWithoutCase)
{
    putElements({element("a", "null", "null", "null", "\"beta\""),
                 element("b", "null", "null", "null", "\"Alpha\""),
                 element("c", "null", "null", "null", "\"Beta\""),
                 element("d", "null", "null", "null", "null"),
                 element("e", "null", "null", "null", "\"beta\""),
                 element("f", "null", "null", "null", "\"\""),
                 element("g", "null", "null", "null", "\"\u00c1rbol\"")});
    const QLocale before;
    QLocale::setDefault(QLocale("es_ES")); // where an accent makes no letter of its own
    const auto source = load();
    QLocale::setDefault(before);
    EXPECT_EQ(source.status(), Status::Loaded);
    ASSERT_EQ(source.sortedSections(),
              QStringList({"", "Alpha", "\u00c1rbol", "Beta", "beta", "MISSING SECTION"}));
    EXPECT_EQ(keys(source, 3), QStringList("c"));
    EXPECT_EQ(keys(source, 4), QStringList({"a", "e"}));
    EXPECT_EQ(source.numberOfRowsInSection(5), 0); // the fault shows, the row does not
    EXPECT_TRUE(log.contains("\nMISSING SECTION: Name of d\n"_L1));
    EXPECT_TRUE(log.startsWith("path: %1\n"_L1.arg(locations.workingCopy())));

    ASSERT_EQ(source.tableSource().size(), 7U);
    EXPECT_EQ(source.indexAt({4, 1}), 4);
    EXPECT_EQ(source.indexPathOf(4), (NSIndexPath{4, 1}));
    EXPECT_FALSE(source.indexPathOf(3).isValid()); // without a section
    for (const NSIndexPath none : {NSIndexPath{}, {4, 2}, {5, 0}, {6, 0}, {0, -1}})
        EXPECT_FALSE(source.indexAt(none)) << none.section << ", " << none.row;
    EXPECT_FALSE(source.tableSource()[3].section);
}

TEST_F(ElementDataSourceTest, SavedValuesLieOverTheDocumentsOwn)
{
    const QDateTime date = QDateTime::fromSecsSinceEpoch(1'700'000'000, Qt::UTC);
    const QByteArray options = "{\"Zero\":\"0\",\"One\":1,\"Yes\":true}";
    struct Case {
        const char *name;
        QByteArray color, options, value; // as in the document
        QVariant saved;                   // null: nothing
        QVariant expectedColor, expectedValue;
        std::optional<QString> shownColor;
        QString shownOption;
    };
    const QVariantList list{1LL, 2LL};
    const QByteArray none = "null", black = "\"#111\"";
    const std::vector<Case> cases = {
        {"nothing", black, none, none, {}, u"#111"_s, {}, u"#111"_s, {}},
        {"color", black, none, none, u"#222"_s, u"#222"_s, {}, u"#222"_s, {}},
        {"removed color", black, none, none, u""_s, u""_s, {}, {}, {}},
        {"null color", none, none, none, u"#222"_s, u"#222"_s, {}, u"#222"_s, {}},
        {"(null)", black, none, none, u"(null)"_s, u"#111"_s, {}, u"#111"_s, {}},
        {"null", black, none, none, u"null"_s, u"#111"_s, {}, u"#111"_s, {}},
        {"number for a color", black, none, none, 7LL, 7LL, {}, u"7"_s, {}},
        {"array for a color", black, none, none, list, list, {}, u"(2 values)"_s, {}},
        {"date for a color", black, none, none, date, date, {}, u"2023-11-14T22:13:20Z"_s, {}},
        {"choice", none, options, "1", true, {}, true, {}, u"Yes"_s},
        {"number", none, options, "\"0\"", 1.0, {}, 1.0, {}, u"One"_s},
        {"no such option", none, options, "1", u"1"_s, {}, u"1"_s, {}, {}},
        {"empty text is a value", none, options, "\"\"", u"0"_s, {}, u"0"_s, {}, u"Zero"_s},
        {"data for a choice", none, options, "1", QByteArray("x"), {}, QByteArray("x"), {}, {}},
        // An open choice receives what was saved as its colour.
        {"open choice", none, options, none, u"0"_s, u"0"_s, {}, u"0"_s, {}},
        // A colour element with a value of its own keeps its colour.
        {"color with value", black, none, "5", u"#222"_s, u"#111"_s, u"#222"_s, u"#111"_s, {}},
    };
    QByteArrayList elements;
    PropertyDictionary saved;
    for (const Case &c : cases) {
        elements.append(element(c.name, c.color, c.options, c.value));
        saved.setValue(QString::fromLatin1(c.name), c.saved);
    }
    putElements(elements);
    for (const QString &own : {u"name"_s, u"gray-balloon-colors"_s})
        saved.setValue(own, u"ours"_s);
    saved.setValue(u"somebody's"_s, list);
    putSaved(saved);
    const auto source = load();
    PropertyDictionary foreign;
    foreign.setValue(u"somebody's"_s, list);
    EXPECT_EQ(source.foreignEntries(), foreign);
    ASSERT_EQ(source.tableSource().size(), cases.size());
    for (size_t i = 0; i < cases.size(); ++i) {
        SCOPED_TRACE(cases[i].name);
        const ElementRecord &record = source.tableSource()[i];
        EXPECT_TRUE(PropertyList::isEqual(record.color, cases[i].expectedColor));
        EXPECT_TRUE(PropertyList::isEqual(record.value, cases[i].expectedValue));
        EXPECT_EQ(record.shownColor(), cases[i].shownColor);
        EXPECT_EQ(record.shownOption(), cases[i].shownOption);
    }
    EXPECT_EQ(log.count("neither text nor number"_L1), 3);
}

TEST_F(ElementDataSourceTest, OddTypesAreTakenAsTextAndNumbersKeepTheirKind)
{
    put(document, R"([{"key":5,"name":null,"description":true,"color":[1],"options":"x",
                       "value":{"a":null},"section":0.5},
                      {"key":"a","name":"","description":"","color":null,
                       "options":{"n":9007199254740993,"r":0.5,"b":false},
                       "value":0.1,"section":"numbers"}])");
    const auto source = load();
    ASSERT_EQ(source.sortedSections(), QStringList({"0.5", "numbers"}));
    const ElementRecord &odd = source.record(0, 0);
    EXPECT_EQ(odd.key, u"5"_s);
    EXPECT_EQ(odd.name, u""_s);
    EXPECT_EQ(odd.description, u"true"_s);
    EXPECT_EQ(odd.options, QVariantMap());
    EXPECT_EQ(odd.shownOption(), QString());
    EXPECT_EQ(odd.shownColor(), u"(1 values)"_s);
    const ElementRecord &numbers = source.record(1, 0);
    EXPECT_TRUE(PropertyList::isEqual(
        *numbers.options, QVariantMap{{"n", 9007199254740993LL}, {"r", 0.5}, {"b", false}}));
    EXPECT_EQ(numbers.value, QVariant(0.1));
}

TEST_F(ElementDataSourceTest, AFaultyDocumentSaysWhatIsWrong)
{
    const QByteArray good = element("a", "null");
    std::vector<std::tuple<QByteArray, Status, QString>> cases = {
        {good, Status::Malformed, u"array"_s},
        {"[]", Status::Loaded, {}},
        {"\xEF\xBB\xBF[" + good + "]", Status::Loaded, {}},
        {"[" + good + ", \"\xff\"]", Status::Unusable, u"UTF-8"_s},
        {"[" + good + ", 5]", Status::Unusable, u"item 1 "_s},
        {"[" + good + ", null]", Status::Unusable, u"item 1 "_s}};
    for (const QByteArray &text : QByteArrayList{"", "[", "[" + good + ",]", "\"text\"", "[NaN]",
                                                 "[-inf]", "[0x10]", "[1e400]"})
        cases.emplace_back(text, Status::Malformed, QString());
    for (const QByteArray key :
         {"key", "name", "description", "color", "options", "value", "section"}) {
        QByteArray item = good;
        item.replace("\"" + key + "\":", "\"" + key + "s\":");
        cases.emplace_back("[" + good + "," + item + "]", Status::Unusable,
                           u"item 1 has no \"%1\""_s.arg(QString::fromLatin1(key)));
    }
    for (const auto &[text, status, reason] : cases) {
        put(document, text);
        const auto source = load();
        EXPECT_EQ(source.status(), status) << text.toStdString();
        EXPECT_EQ(source.problem().isEmpty(), status == Status::Loaded) << text.toStdString();
        EXPECT_TRUE(source.problem().contains(reason)) << source.problem().toStdString();
        EXPECT_EQ(log.contains(document) && log.contains(reason), status == Status::Unusable);
        EXPECT_TRUE(status == Status::Loaded ||
                    (source.tableSource().empty() && source.numberOfSections() == 0));
    }
    NSFileManager::removeItemAtPath(document);
    EXPECT_EQ(load().status(), Status::Unusable);
    EXPECT_TRUE(log.contains("%1: No such file or directory\n"_L1.arg(document)));
}

TEST_F(ElementDataSourceTest, TheShippedDocumentIsSound)
{
    const auto source = ElementDataSource::load(TINTLOOM_SOURCE_RESOURCES, locations.documents);
    ASSERT_EQ(source.status(), Status::Loaded) << source.problem().toStdString();
    QStringList names, keys;
    for (const auto &record : source.tableSource()) {
        SCOPED_TRACE(record.key.toStdString());
        names.append(record.name);
        keys.append(record.key);
        EXPECT_TRUE(record.section);
        EXPECT_EQ(record.isChoice(), record.value.isValid());
        EXPECT_EQ(record.isChoice(), !record.shownOption().isEmpty());
    }
    EXPECT_EQ(names.removeDuplicates() + keys.removeDuplicates(), 0);
}
