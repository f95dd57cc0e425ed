#include "editor/EditorFindings.h"

#include "support/EditorFixture.h"

#include <QAccessible>

namespace
{
struct EditorFindingsTest : EditorFixture {
    static constexpr int ground = 40, faint = 41, clear = 42, locked = 43;
    void SetUp() override
    {
        QJsonArray elements = manyElements(40);
        elements.append(element("ground", "All", "#FFFFFFFF"));
        for (const auto &[key, color] :
             {std::pair("faint", "#999999FF"), {"clear", "#000000FF"}, {"locked", "#AAAAAAFF"}}) {
            QJsonObject text = element(key, "All", color);
            text["on"] = QJsonObject{{"text", QJsonArray{"ground"}}};
            elements.append(text);
        }
        writeDocument(elements);
        start();
    }
    ThemeDocument &document() { return editor().document(); }
    void showRow(int row)
    {
        table().scrollToRow({0, row});
        settle();
    }
    QString markOn(int row) { return cell({0, row}) ? cell({0, row})->finding() : "not in sight"; }
};

const QString faintOnWhite = "Name of faint on Name of ground: Contrast 2.84, needs 4.50";
} // namespace

TEST_F(EditorFindingsTest, MarksFollowEveryChangeOfTheDocument)
{
    showRow(locked);
    EXPECT_EQ(markOn(faint), faintOnWhite);
    EXPECT_EQ(markOn(clear), "");
    EXPECT_EQ(markOn(ground), "");
    editor().setLocked(faint, true);
    EXPECT_TRUE(QAccessible::queryAccessibleInterface(cell({0, faint}))
                    ->text(QAccessible::Description)
                    .endsWith("#999999FF\nLocked\n" + faintOnWhite));

    const auto expectMarks = [this](bool onFaint, bool onClear) {
        settle();
        EXPECT_EQ(markOn(faint) != "", onFaint);
        EXPECT_EQ(markOn(clear) != "", onClear);
    };
    document().setColor(faint, "#666666FF");
    expectMarks(false, false);
    document().undo();
    expectMarks(true, false);
    document().showPassingColor(ground, "#000000FF"); // rows that have not changed themselves
    expectMarks(false, true);
    document().dropPassingColor();
    expectMarks(true, false);
    document().setColor(ground, ""); // nobody knows what the phone shows
    document().setColor(ground, "#000000FF");
    expectMarks(false, true);
    scrollTo(-20.0);
    document().undo();
    document().undo();
    showRow(locked);
    expectMarks(true, false);
}
