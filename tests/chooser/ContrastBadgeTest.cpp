#include "chooser/ContrastBadge.h"

#include "advice/Findings.h"
#include "support/EditorFixture.h"
#include "theme/ColorText.h"

#include <QAccessible>

namespace
{
QJsonObject on(QJsonObject element, const QJsonObject &grounds)
{
    element["on"] = grounds;
    return element;
}

struct ContrastBadgeTest : EditorFixture {
    enum Row { Ground, Text, Mark, Alone, White, OnWhite, Dark, Between };
    void SetUp() override
    {
        const QJsonObject text{{"text", QJsonArray{"ground"}}};
        writeDocument(QJsonArray{
            element("ground", "All", "#757575FF"), // on which both white and black can be read
            on(element("text", "All", "#808080FF"), text),
            on(element("mark", "All", "#FFFFFFFF"), {{"mark", QJsonArray{"ground"}}}),
            element("alone", "All", "#123456FF"), element("white", "All", "#FFFFFFFF"),
            on(element("on-white", "All", "#00000008"), {{"text", QJsonArray{"white"}}}),
            element("dark", "All", "#333333FF"),
            on(element("between", "All", "#FF0000FF"), {{"text", QJsonArray{"white", "dark"}}})});
        start();
    }
    const ContrastBadge &badge() { return *chooser()->contrast(); }
    QQuickItem *mark() { return chooser()->view()->findChild<QQuickItem *>("contrastMark"); }
    /// Once what the finger has left is told.
    QString spoken(QAccessible::Text text)
    {
        const auto *pace = badge().findChild<QTimer *>();
        while (pace->isActive())
            settle();
        return QAccessible::queryAccessibleInterface(mark())->text(text);
    }
    QString text() { return chooser()->hexTextField()->text(); }
    int lightness() { return qGray(rgbFromText()); }
    QRgb rgbFromText() { return colorFromHexString(text()).qColor().rgba(); }
};
} // namespace

TEST_F(ContrastBadgeTest, FollowsTheFingerAndOffersTheNearestColourThenTheOther)
{
    open(Text);
    ASSERT_TRUE(mark()->isVisible());
    EXPECT_EQ(badge().ratio(), "1.16");
    EXPECT_EQ(spoken(QAccessible::Name), "Contrast 1.16 with Name of ground, hard to read");
    const QPoint wheel = sceneFrame(chooser()->colorPicker()).center().toPoint();
    chooser()->brightnessSlider()->moveTo(0.9f);
    press(wheel);
    EXPECT_EQ(badge().verdict(), "large only") << badge().ratio().toStdString();
    EXPECT_EQ(spoken(QAccessible::Description), "Picks the nearest color that reads well");
    move(wheel + QPoint(0, 150)); // a saturated colour
    EXPECT_EQ(badge().verdict(), "hard to read") << "while the finger is down";
    move(wheel);
    release(wheel);

    tap(mark());
    EXPECT_EQ(badge().verdict(), "reads well");
    EXPECT_GT(lightness(), 230) << "the lighter one is nearer";
    EXPECT_EQ(editor().document().shownChoice(Text).color, text()) << "passing, like any other";
    const QString lighter = text();
    EXPECT_EQ(spoken(QAccessible::Description), "Picks the other color that reads well");
    tap(mark());
    EXPECT_EQ(badge().verdict(), "reads well");
    EXPECT_LT(lightness(), 20);
    tap(mark());
    EXPECT_EQ(text(), lighter);
    leave("_cancelButton");
    EXPECT_EQ(editor().document().record(Text).color, "#808080FF");

    open(Text);
    tap(mark());
    leave("_saveButton"); // which sends the text through the wheel again
    open(OnWhite);
    EXPECT_EQ(badge().verdict(), "hard to read");
    tap(mark()); // for so little ink no colour does unless it gets opaque
    EXPECT_EQ(badge().verdict(), "reads well");
    leave("_saveButton");
    const std::vector<Finding> left = findings(editor().source());
    EXPECT_EQ(std::ranges::count(left, Between, &Finding::element), std::ssize(left));
}

TEST_F(ContrastBadgeTest, SpeaksOfGroundsAndOfNothingThatStandsAlone)
{
    open(Ground);
    EXPECT_EQ(spoken(QAccessible::Name), "Contrast 1.16 with Name of text, hard to read");
    tap(mark());
    EXPECT_EQ(badge().verdict(), "reads well");
    const QString readable = text();
    // The mark is white: only a dark ground does for both, however often it is asked for.
    tap(mark());
    EXPECT_EQ(text(), readable);
    EXPECT_LT(lightness(), 0x75);
    leave("_saveButton");
    open(Mark);
    EXPECT_EQ(badge().verdict(), "reads well");
    EXPECT_EQ(spoken(QAccessible::Description), "");
    tap(mark()); // all is well
    EXPECT_EQ(text(), "#FFFFFFFF");
    leave("_cancelButton");

    open(Between); // nothing reads on both
    tap(mark());
    EXPECT_EQ(badge().verdict(), "no color reads");
    EXPECT_EQ(text(), "#FF0000FF");
    chooser()->selectGreen();
    EXPECT_EQ(badge().verdict(), "hard to read") << "which nobody has asked about";
    leave("_cancelButton");
    open(Alone);
    EXPECT_FALSE(mark()->isVisible());
    EXPECT_TRUE(chooser()->view()->findChild<QQuickItem *>("_hexTextField")->isVisible());
}

TEST_F(ContrastBadgeTest, KeysReachItAndTheTextStaysWhereItWas)
{
    open(Text);
    const QRectF field = sceneFrame(chooser()->hexTextField());
    EXPECT_EQ(field, QRectF(0, 70, 320, 40));
    EXPECT_EQ(sceneFrame(mark()), QRectF(234, 70, 86, 40));
    tap(field.center());
    EXPECT_TRUE(chooser()->hexTextField()->isEditing());
    EXPECT_LE(sceneFrame(mark()).right(), 320 - 34) << "beside the button that clears";
    key(Qt::Key_Tab);
    EXPECT_TRUE(mark()->hasActiveFocus());
    key(Qt::Key_Space);
    EXPECT_EQ(badge().verdict(), "reads well");
    key(Qt::Key_Tab);
    EXPECT_TRUE(chooser()->colorPicker()->hasActiveFocus());
}
