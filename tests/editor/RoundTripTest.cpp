#include "editor/CustomViewController.h"
#include "support/EditorFixture.h"

#include <QAbstractAnimation>

namespace
{
const QJsonObject letters{{"beta", "b"}, {"Alpha", 1}, {"gamma", 3}};

class RoundTripTest : public EditorFixture
{
protected:
    /// Two sections of two colours, then one of a choice and another element; in document order
    /// D1 C1 C2 D2 choice last.
    void startWithSections(const QJsonObject &last = element("last", "Zulu"))
    {
        writeDocument(QJsonArray{element("D1", "Delta", "#111111FF"),
                                 element("C1", "Charlie", "#222222FF"), element("C2", "Charlie"),
                                 element("D2", "Delta", "#444444FF"),
                                 element("choice", "Zulu", {}, letters, "b"), last});
        start();
    }
    void tapRow(NSIndexPath indexPath) { tap(cell(indexPath)); }
    void tapInChooser(const char *name) { tap(chooser()->view()->findChild<QQuickItem *>(name)); }
    QAbstractAnimation *fade() { return editor().findChild<QAbstractAnimation *>("fade"); }
    void endFade()
    {
        for (auto *animation : editor().findChildren<QAbstractAnimation *>())
            animation->setCurrentTime(animation->duration());
        settle();
    }
    QVariant colorOf(const QString &key)
    {
        return std::ranges::find(editor().source().tableSource(), key, &ElementRecord::key)->color;
    }
    void expectCell(NSIndexPath indexPath, const QString &caption, const QColor &background,
                    const QColor &text)
    {
        EXPECT_EQ(cell(indexPath)->colorLabel()->text(), caption);
        EXPECT_EQ(cell(indexPath)->backgroundColor().rgba(), background.rgba());
        for (UILabel *label : {cell(indexPath)->name(), cell(indexPath)->description(),
                               cell(indexPath)->colorLabel()})
            EXPECT_EQ(label->textColor(), text);
    }
};
} // namespace

TEST_F(RoundTripTest, AColourGoesToTheChooserAndComesBack)
{
    startWithSections();
    tapRow({1, 1}); // D2
    ASSERT_TRUE(chooser());
    EXPECT_FALSE(cell({1, 1})->isSelected());
    EXPECT_EQ(chooser()->selectedSection(), 1);
    EXPECT_EQ(chooser()->selectedRow(), 1);
    EXPECT_EQ(chooser()->hexTextField()->text(), "#444444FF");
    // It covers everything at once.
    EXPECT_EQ(sceneFrame(chooser()->view()), QRectF(0, 0, 320, 568));
    EXPECT_EQ(grab().pixelColor(2, 300), QColor(Qt::white));
    chooser()->colorPicker()->setSelectionColor(UIColor::colorWithRed(1.0, 1.0, 0.0, 1.0));
    EXPECT_EQ(editor().document().shownChoice(3).color, "#FFFF00FF"); // passing
    EXPECT_EQ(colorOf("D2"), "#444444FF");
    tapInChooser("_saveButton");
    EXPECT_EQ(colorOf("D2"), "#FFFF00FF");
    EXPECT_EQ(colorOf("D1"), "#111111FF");
    editor().findChild<QAbstractAnimation *>("rowFade")->setCurrentTime(0);
    expectCell({1, 1}, "#FFFF00FF", "#444444", Qt::black); // the ground changes with the fade
    endFade();
    expectCell({1, 1}, "#FFFF00FF", "#FFFF00", Qt::black);
    EXPECT_FALSE(chooser());
    EXPECT_FALSE(editor().isChooserOpen());

    tapRow({0, 1}); // C2, which has no colour
    EXPECT_EQ(chooser()->hexTextField()->text(), "#FFFFFFFF");
    chooser()->colorPicker()->setSelectionColor(UIColor::blackColor());
    tapInChooser("_cancelButton");
    endFade();
    EXPECT_FALSE(colorOf("C2").isValid());
    EXPECT_FALSE(editor().document().shownChoice(2).color.isValid());

    tapRow({1, 0});
    tapInChooser("_removeButton");
    endFade();
    EXPECT_EQ(colorOf("D1"), "");
    expectCell({1, 0}, " ", Qt::white, Qt::black);

    // What was chosen is what is saved.
    tapSave();
    ASSERT_TRUE(waitForAlert());
    key(Qt::Key_Return);
    start();
    EXPECT_EQ(colorOf("D1"), "");
    expectCell({1, 1}, "#FFFF00FF", "#FFFF00", Qt::black);
}

TEST_F(RoundTripTest, RowsWithoutASectionAddressTheDocument)
{
    startWithSections();
    const UIColor thinBlue = UIColor::colorWithRed(0.0, 0.0, 1.0, 0.1);
    editor().dismissWithColorAndRow(thinBlue, 0); // D1 in the document, C1 in the table
    EXPECT_EQ(colorOf("D1"), "#0000FF19");
    EXPECT_EQ(colorOf("C1"), "#222222FF");
    endFade();
    expectCell({0, 0}, "#0000FF19", thinBlue.qColor(), Qt::black);
    editor().dismissWithNoColorAndRow(1); // C1, painted on C2
    EXPECT_EQ(colorOf("C1"), "");
    endFade();
    expectCell({0, 1}, " ", Qt::white, Qt::black);
    editor().dismissWithColorSectionAndRow(UIColor::blackColor(), 0, 0);
    EXPECT_EQ(colorOf("C1"), "#000000FF");
    editor().dismissWithColorSectionAndRow(UIColor::whiteColor(), 0, 1);
    expectCell({0, 0}, "#000000FF", Qt::black,
               Qt::white); // overtaken, the first fade is at its end
    endFade();
    expectCell({0, 1}, "#FFFFFFFF", Qt::white, Qt::black);
    // Rows that do not exist store nothing.
    for (const int row : {-1, 6, 1 << 30}) {
        editor().dismissWithColorAndRow(thinBlue, row);
        editor().dismissWithNoColorSectionAndRow(row, 0);
        editor().dismissWithColorSectionAndRow(thinBlue, 0, row);
    }
    EXPECT_EQ(colorOf("C1"), "#000000FF");
    EXPECT_EQ(colorOf("D2"), "#444444FF");
}

TEST_F(RoundTripTest, TheCataloguesBarLeavesWhileTheChooserIsOpen)
{
    startWithSections();
    navigation().pushViewController(CustomViewController::initFromMainView(folders()), false);
    settle();
    EXPECT_FALSE(navigation().isNavigationBarHidden());
    tapRow({0, 0});
    EXPECT_TRUE(navigation().isNavigationBarHidden());
    key(Qt::Key_Escape);
    EXPECT_FALSE(navigation().isNavigationBarHidden());
}

TEST_F(RoundTripTest, ARowOutOfSightShowsItsColourLater)
{
    writeDocument(manyElements(40));
    start();
    tapRow({0, 2});
    table().setContentOffset(1000.0);
    settle();
    ASSERT_FALSE(cell({0, 2}));
    tapInChooser("_removeButton");
    endFade();
    table().setContentOffset(-20.0);
    settle();
    expectCell({0, 2}, "", Qt::white, Qt::black);
}

TEST_F(RoundTripTest, TheChooserTakesAllInputUntilItIsGone)
{
    startWithSections();
    tapRow({0, 0});
    const ColorPickerViewController *const first = chooser();
    tap({160, 112}); // between patch and wheel
    QTest::keyClick(&window(), Qt::Key_S, Qt::ControlModifier);
    EXPECT_FALSE(editor().isLoading());
    EXPECT_EQ(chooser(), first);
    editor().didSelectRowAtIndexPath({1, 0}); // were a tap to get through, the open one stays
    EXPECT_EQ(chooser(), first);
    EXPECT_EQ(chooser()->selectedSection(), 0);

    key(Qt::Key_Escape);
    fade()->pause();
    fade()->setCurrentTime(150);
    settle();
    EXPECT_NEAR(chooser()->view()->opacity(), 0.5, 0.01);
    // One picture that fades, of the whole page.
    for (const QQuickItem *item = chooser()->view(); item != editor().view();
         item = item->parentItem()) {
        if (item->opacity() < 1.0) {
            EXPECT_TRUE(item->property("layer").value<QObject *>()->property("enabled").toBool());
        }
    }
    tapInChooser("_removeButton");
    tapRow({1, 0});
    tapSave();
    EXPECT_FALSE(editor().isLoading());
    EXPECT_EQ(chooser(), first);
    fade()->stop(); // interrupted, it goes all the same
    settle();
    EXPECT_FALSE(chooser());
    EXPECT_EQ(colorOf("C1"), "#222222FF");
    tapRow({1, 0});
    EXPECT_NE(chooser(), nullptr);
    EXPECT_EQ(chooser()->view()->opacity(), 1.0);
}

TEST_F(RoundTripTest, TheKeyboardGoesThereAndBack)
{
    startWithSections();
    key(Qt::Key_Down);
    key(Qt::Key_Return);
    ASSERT_TRUE(chooser());
    key(Qt::Key_Right); // moves the wheel's selection, not the row
    key(Qt::Key_Return);
    EXPECT_NE(colorOf("C1"), "#222222FF");
    endFade();
    key(Qt::Key_Down);
    key(Qt::Key_Return);
    ASSERT_TRUE(chooser());
    EXPECT_EQ(chooser()->selectedRow(), 1);
}

TEST_F(RoundTripTest, TheWindowMayCloseUnderAnOpenChooserOrSheet)
{
    startWithSections();
    tapRow({0, 0});
    const std::weak_ptr<UIViewController> open = chooser()->weak_from_this();
    stop();
    EXPECT_TRUE(open.expired());
    start();
    tapRow({0, 0});
    key(Qt::Key_Escape);
    ASSERT_TRUE(chooser()); // fading
    start();
    tapRow({2, 0});
    ASSERT_TRUE(window().actionSheet());
    stop();
}

TEST_F(RoundTripTest, OptionsComeInAlphabeticalOrderAndCancelLast)
{
    // An open choice that was saved comes back as a colour; it stays a choice.
    put(folders().theme.workingCopy(),
        "<plist><dict><key>open</key><string>0</string></dict></plist>");
    startWithSections(element("open", "Zulu", {}, letters));
    expectCell({2, 1}, "0", Qt::transparent, Qt::black);
    tapRow({2, 1});
    EXPECT_FALSE(chooser());
    window().actionSheet()->click(2);
    EXPECT_EQ(editor().source().record(2, 1).value, 3);
    expectCell({2, 1}, "gamma", Qt::transparent, Qt::black);

    tapRow({2, 0});
    const UIActionSheet *sheet = window().actionSheet();
    ASSERT_TRUE(sheet);
    EXPECT_EQ(sheet->title(), "Name of choice");
    EXPECT_EQ(sheet->buttonTitles(), (QStringList{"Alpha", "beta", "gamma", "Cancel"}));
    EXPECT_EQ(sheet->cancelButtonIndex(), 3);
    EXPECT_EQ(sheet->tag(), 0);
    key(Qt::Key_Down);
    key(Qt::Key_Down);
    key(Qt::Key_Return);
    EXPECT_FALSE(window().actionSheet());
    EXPECT_EQ(editor().source().record(2, 0).value, 3);
    EXPECT_EQ(cell({2, 0})->colorLabel()->text(), "gamma");

    tapRow({2, 0});
    key(Qt::Key_Escape);
    EXPECT_FALSE(window().actionSheet());
    tapRow({2, 0});
    tap({160, 100}); // beside the sheet
    EXPECT_FALSE(window().actionSheet());
    EXPECT_EQ(editor().source().record(2, 0).value, 3);

    tapRow({2, 0});
    grab();                         // the frame with the buttons
    tap({160, 568 - 8 - 3.5 * 44}); // the first of four
    EXPECT_EQ(editor().source().record(2, 0).value, 1);
    EXPECT_EQ(cell({2, 0})->colorLabel()->text(), "Alpha");
}

TEST_F(RoundTripTest, OptionsFindTheirElementByNameAndCancelIsNoOption)
{
    QJsonObject first = element("first", "A", {}, QJsonObject{{"Cancel", 1}, {"On", 2}}, 1);
    QJsonObject second = element("second", "B", {}, QJsonObject{{"Off", 3}, {"On", 4}}, 3);
    second["name"] = first["name"];
    writeDocument(QJsonArray{first, second});
    start();
    tapRow({0, 0});
    window().actionSheet()->click(0); // the option "Cancel"
    EXPECT_EQ(editor().source().record(0, 0).value, 1);

    tapRow({1, 0});
    window().actionSheet()->click(1);                   // "On", of the second
    EXPECT_EQ(editor().source().record(0, 0).value, 2); // goes to the first of that name
    EXPECT_EQ(editor().source().record(1, 0).value, 3);
    EXPECT_EQ(cell({1, 0})->colorLabel()->text(), "On"); // though the tapped row shows it
    tapRow({1, 0});
    window().actionSheet()->click(0); // "Off", which the first has not
    EXPECT_EQ(editor().source().record(0, 0).value, 2);
}
