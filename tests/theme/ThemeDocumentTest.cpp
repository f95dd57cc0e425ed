#include "theme/ThemeDocument.h"

#include "support/ThemeFixture.h"
#include "theme/ThemePackageWriter.h"

#include <random>

using namespace Qt::StringLiterals;

namespace
{
struct ThemeDocumentTest : ThemeFixture {
    void SetUp() override
    {
        const QByteArray letters = "{\"A\":1,\"B\":false,\"C\":\"1\",\"D\":true}";
        putElements({element("red", "\"#F00\""), element("null", "null"), element("empty", "\"\""),
                     element("choice", "null", letters, "1"), element("open", "null", letters),
                     element("red too", "\"#F00\""),
                     element("hidden", "\"#F00\"", "null", "null", "null")});
        PropertyDictionary saved;
        for (const QString key : {"red", "red too", "hidden"})
            saved.setValue(key, u"#0F0"_s);
        putSaved(saved);
    }

    static QByteArray bytes(const ThemeDocument &document)
    {
        return PropertyList::writeDictionary(themeDictionary(document.elements()));
    }
};

/// What a document has told.
struct Listener {
    explicit Listener(const ThemeDocument &document)
    {
        QObject::connect(&document, &ThemeDocument::changed, &context,
                         [this](const std::vector<int> &indexes) { changes.push_back(indexes); });
        QObject::connect(&document, &ThemeDocument::unsavedChanged, &context,
                         [this] { ++unsavedChanges; });
        QObject::connect(&document, &ThemeDocument::passingColorChanged, &context,
                         [this](int index) { passing.push_back(index); });
    }
    std::vector<std::vector<int>> changes;
    std::vector<int> passing;
    int unsavedChanges = 0;
    QObject context;
};
} // namespace

TEST_F(ThemeDocumentTest, MakesOneStepAndOneSignalOfEachChangeAndNoneOfWhatStands)
{
    ThemeDocument document(load());
    Listener told(document);
    EXPECT_FALSE(document.setColor(0, u"#0F0"_s));
    EXPECT_FALSE(document.setColor(2, {})); // removed already
    EXPECT_FALSE(document.chooseOption(3, u"A"_s));
    EXPECT_FALSE(document.chooseOption(3, u"no such"_s));
    EXPECT_FALSE(document.chooseOption(0, u"A"_s));
    EXPECT_FALSE(document.changeAll({}, u"nothing"_s));
    EXPECT_TRUE(told.changes.empty());
    EXPECT_FALSE(document.canUndo());
    EXPECT_TRUE(document.undo().empty() && document.redo().empty());

    EXPECT_TRUE(document.setColor(0, u"#00ff00"_s)); // the same colour in other digits
    EXPECT_EQ(document.record(0).color, QVariant(u"#00ff00"_s));
    EXPECT_EQ(document.undoName(), u"Change Name of red"_s);
    EXPECT_TRUE(document.setColor(1, {})); // null is not empty
    EXPECT_EQ(document.undoName(), u"Remove Name of null"_s);
    EXPECT_TRUE(document.changeAll({{3, {{}, 1.0}}}, u"Other"_s)); // is written otherwise than 1
    EXPECT_EQ(document.record(3).value.typeId(), QMetaType::Double);
    // Of two for one element the later counts, even when it brings back what stands.
    EXPECT_TRUE(document.changeAll({{5, {u"#1"_s, {}}},
                                    {0, {u"#2"_s, {}}},
                                    {5, {u"#3"_s, {}}},
                                    {1, {u"#4"_s, {}}},
                                    {1, {u""_s, {}}}},
                                   u"Many"_s));
    EXPECT_EQ(told.changes, (std::vector<std::vector<int>>{{0}, {1}, {3}, {0, 5}}));
    EXPECT_EQ(document.record(5).color, QVariant(u"#3"_s));

    EXPECT_EQ(document.undo(), (std::vector<int>{0, 5}));
    EXPECT_EQ(document.undo(), std::vector<int>{3});
    EXPECT_EQ(document.redoName(), u"Other"_s);
    EXPECT_EQ(document.redo(), std::vector<int>{3});
    EXPECT_EQ(told.changes.size(), 7U);
    EXPECT_TRUE(document.setColor(0, u"#5"_s));
    EXPECT_FALSE(document.canRedo());
}

TEST_F(ThemeDocumentTest, KnowsWhatIsSavedAndWhatTheDocumentItselfSays)
{
    ThemeDocument document(load());
    Listener told(document);
    document.setColor(0, u"#111"_s);
    document.chooseOption(4, u"C"_s);
    EXPECT_TRUE(document.hasUnsavedChanges());
    EXPECT_EQ(document.unsavedChanges().size(), 2U);
    document.setColor(0, u"#0F0"_s); // typed again, it is the saved one
    document.undo();
    document.undo();
    document.undo();
    EXPECT_FALSE(document.hasUnsavedChanges());
    EXPECT_EQ(told.unsavedChanges, 2);

    const ElementDataSource snapshot = document.elements();
    document.setColor(0, u"#111"_s);
    document.setColor(1, u"#222"_s);
    document.noteSaved(snapshot); // what came after it is unsaved still
    EXPECT_EQ(document.unsavedChanges().size(), 2U);
    document.noteSaved(document.elements());
    EXPECT_FALSE(document.hasUnsavedChanges());
    EXPECT_TRUE(document.canUndo());
    document.undo();
    EXPECT_EQ(document.unsavedChanges().size(), 1U);
    EXPECT_TRUE(document.resetToSaved(1));
    EXPECT_EQ(document.record(1).color, QVariant(u"#222"_s));

    EXPECT_TRUE(document.resetToDefault(0));
    EXPECT_EQ(document.record(0).color, QVariant(u"#F00"_s)); // not what had been saved
    EXPECT_EQ(document.undoName(), u"Reset Name of red"_s);
    EXPECT_TRUE(document.resetToDefault(1));
    EXPECT_FALSE(document.record(1).color.isValid());
    EXPECT_FALSE(document.resetToDefault(3));
}

TEST_F(ThemeDocumentTest, FindsWhoBoreTheOldColorAndSparesTheLocked)
{
    ThemeDocument document(load());
    EXPECT_TRUE(document.namesakes(0).indexes.empty()); // never changed
    document.setColor(0, u"#ABC"_s);
    document.setColor(2, u"#123"_s);
    EXPECT_TRUE(document.namesakes(2).indexes.empty()); // it had none
    EXPECT_EQ(document.namesakes(0).colorText, u"#0F0"_s);
    EXPECT_EQ(document.namesakes(0).indexes, (std::vector<int>{5, 6}));
    document.setLocked(5, true);
    EXPECT_EQ(document.namesakes(0).indexes, std::vector<int>{6});

    EXPECT_TRUE(document.changeUnlocked({{5, {u"#1"_s, {}}}, {6, {u"#1"_s, {}}}}, u"Many"_s));
    EXPECT_EQ(document.record(5).color, QVariant(u"#0F0"_s));
    EXPECT_EQ(document.record(6).color, QVariant(u"#1"_s));
    EXPECT_FALSE(document.changeUnlocked({{5, {u"#1"_s, {}}}}, u"Many"_s));
    EXPECT_TRUE(document.setColor(5, u"#2"_s)); // by itself it can be changed
    for (int step = 0; step < 4; ++step)
        document.undo();
    EXPECT_TRUE(document.namesakes(0).indexes.empty());
}

TEST_F(ThemeDocumentTest, ShowsAPassingColorWithoutATrace)
{
    ThemeDocument document(load());
    const QByteArray before = bytes(document);
    Listener told(document);
    document.showPassingColor(0, u"#1"_s);
    document.showPassingColor(0, u"#1"_s);
    EXPECT_EQ(document.shownChoice(0).color, QVariant(u"#1"_s));
    EXPECT_EQ(document.record(0).color, QVariant(u"#0F0"_s));
    document.showPassingColor(1, u"#2"_s);
    EXPECT_EQ(document.shownChoice(0).color, QVariant(u"#0F0"_s));
    document.dropPassingColor();
    document.dropPassingColor();
    EXPECT_EQ(document.shownChoice(1), document.record(1).choice());
    EXPECT_EQ(told.passing, (std::vector<int>{0, 0, 1, 1}));
    EXPECT_TRUE(told.changes.empty());
    EXPECT_FALSE(document.canUndo() || document.hasUnsavedChanges());
    EXPECT_EQ(bytes(document), before);
}

TEST_F(ThemeDocumentTest, UndoesAndRedoesAnythingToTheByte)
{
    ThemeDocument document(load());
    std::mt19937 random(13);
    const auto below = [&](int end) { return int(random() % unsigned(end)); };
    const QStringList texts{u""_s, u"#F00"_s, u"#FF0000FF"_s, u"#0F0"_s, u"#123456"_s};
    const QStringList labels{u"A"_s, u"B"_s, u"C"_s, u"D"_s};
    std::vector<QByteArray> states{bytes(document)}; // before each step that can be undone, and now
    size_t place = 0;
    QByteArray saved = bytes(document);
    for (int operation = 0; operation < 4000; ++operation) {
        const int index = below(document.count());
        bool isStep = false;
        switch (below(9)) {
        case 0:
            isStep = document.chooseOption(index, labels[below(4)]);
            break;
        case 1: {
            ThemeDocument::Changes changes;
            for (int change = below(6); change > 0; --change)
                changes.push_back({below(document.count()), {texts[below(5)], qint64(below(2))}});
            isStep = document.changeUnlocked(changes, u"Many"_s);
            break;
        }
        case 2:
            isStep = below(2) ? document.resetToSaved(index) : document.resetToDefault(index);
            break;
        case 3:
        case 4:
            ASSERT_EQ(document.canUndo(), place > 0);
            place -= document.undo().empty() ? 0 : 1;
            break;
        case 5:
            ASSERT_EQ(document.canRedo(), place + 1 < states.size());
            place += document.redo().empty() ? 0 : 1;
            break;
        case 6:
            document.setLocked(index, below(3) == 0);
            if (below(20) == 0) {
                document.noteSaved(document.elements());
                saved = bytes(document);
            }
            break;
        default:
            isStep = document.setColor(index, texts[below(5)]);
        }
        if (isStep) {
            states.resize(++place);
            states.push_back(bytes(document));
        }
        ASSERT_EQ(bytes(document), states[place]) << operation;
        // Null and empty are written alike where nothing is written; equal choices always are.
        ASSERT_TRUE(document.hasUnsavedChanges() || bytes(document) == saved) << operation;
    }
    ASSERT_GT(states.size(), 100U);
    while (document.canUndo())
        document.undo();
    EXPECT_EQ(bytes(document), states.front());
    while (document.canRedo())
        document.redo();
    EXPECT_EQ(bytes(document), states.back());

    ThemeDocument direct(load());
    ThemeDocument::Changes last;
    for (int index = 0; index < document.count(); ++index)
        last.push_back({index, document.record(index).choice()});
    direct.changeAll(last, u"All"_s);
    EXPECT_EQ(bytes(direct), states.back());
}
