#include "platform/WindowLayout.h"
#include "preview/window/PreviewItem.h"
#include "preview/window/PreviewPage.h"
#include "support/EditorFixture.h"

#include <QAccessible>

namespace
{
struct PreviewPaneTest : EditorFixture {
    void SetUp() override { useShippedDocument(); }

    /// Starts in a window with room for both screens beside the stage.
    void startWide(QSize size = {1060, 660})
    {
        start({AppDelegate::Root::Editor, size});
        ASSERT_TRUE(QTest::qWaitFor([this] { return !screens().empty(); }));
        settle();
    }
    /// The conversation, and the list of messages.
    QList<PreviewItem *> screens()
    {
        const UIViewController *page = window().presentedViewController();
        const QQuickItem *view = (page ? page : window().paneViewController())->view();
        return view ? view->findChildren<PreviewItem *>() : QList<PreviewItem *>();
    }
    PreviewItem &conversation() { return *screens()[0]; }
    PreviewModel &model() { return *editor().preview()->model(); }
    int indexOf(const QString &key) { return editor().source().indexesOfKey(key).front(); }

    /// Where the part is on top, in the window.
    QPointF placeOf(const QString &key, PreviewItem &in)
    {
        const auto screen =
            in.isMessageList() ? PreviewScreen::MessageList : PreviewScreen::Conversation;
        const QRectF bounds = model().scene().outline(screen, key).boundingRect();
        const auto isInside = [&](QPointF point) {
            return model().scene().keyAt(screen, point) == key;
        };
        for (double y = bounds.top(); y < bounds.bottom(); ++y)
            for (double x = bounds.left(); x < bounds.right(); ++x)
                if (isInside({x - 4, y}) && isInside({x + 4, y}) && isInside({x, y - 4}) &&
                    isInside({x, y + 4})) // where no outline is
                    return in.mapToScene(in.fromScene().map(QPointF(x, y)));
        return {};
    }
    /// Soon, for the preview paints no faster than displays do.
    bool showsSoon(QRgb color, QPointF point)
    {
        return QTest::qWaitFor([=, this] { return colorAt(point) == color; });
    }
    QRgb colorAt(QPointF point)
    {
        const QImage picture = grab();
        return picture.pixel((point * picture.devicePixelRatio()).toPoint());
    }
};

const QString green = "green-balloon-colors_1", background = "conversation-background-color";
} // namespace

TEST_F(PreviewPaneTest, TheStageKeepsItsSizeAndThePaneTakesTheRest)
{
    const std::tuple<QSizeF, bool, std::optional<double>, QRectF, double> cases[] = {
        // window, wanted, stage asked for -> stage, width of the pane
        {{320, 568}, true, {}, {0, 0, 320, 568}, 0},
        {{640, 568}, true, {}, {0, 0, 320, 568}, 320},
        {{639, 568}, true, {}, {109, 0, 420, 568}, 0},
        {{700, 600}, true, {}, {0, 0, 350, 600}, 350},
        {{900, 600}, true, {}, {0, 0, 420, 600}, 480},
        {{900, 600}, false, {}, {240, 0, 420, 600}, 0},
        {{900, 600}, true, 900, {0, 0, 900, 600}, 0},
        {{900, 600}, true, 320, {0, 0, 320, 600}, 580},
        {{300, 240}, true, 320, {0, 0, 300, 240}, 0}};
    for (const auto &[size, wanted, asked, stage, pane] : cases) {
        const WindowLayout layout = WindowLayout::make(size, wanted, asked);
        EXPECT_EQ(layout.stage, stage) << size.width();
        EXPECT_EQ(layout.pane.width(), pane) << size.width();
    }
}

TEST_F(PreviewPaneTest, FollowsTheFingerAndTheDocument)
{
    startWide();
    const QPointF ground = placeOf(background, conversation());
    EXPECT_TRUE(showsSoon(qRgb(0xF6, 0xFA, 0xF8), ground));
    ThemeDocument &document = editor().document();
    document.showPassingColor(indexOf(background), "#102030FF");
    EXPECT_TRUE(showsSoon(qRgb(0x10, 0x20, 0x30), ground));
    document.dropPassingColor();
    EXPECT_TRUE(showsSoon(qRgb(0xF6, 0xFA, 0xF8), ground));
    document.setColor(indexOf(background), "#405060FF");
    EXPECT_TRUE(showsSoon(qRgb(0x40, 0x50, 0x60), ground));
    document.undo();
    EXPECT_TRUE(showsSoon(qRgb(0xF6, 0xFA, 0xF8), ground));
    model().setEyes(Eyes::Grey);
    const QPointF balloon = placeOf(green, conversation());
    EXPECT_TRUE(QTest::qWaitFor([&] { return QColor(colorAt(balloon)).saturation() == 0; }));
}

TEST_F(PreviewPaneTest, ATapOpensTheElementsRowUnlessSomethingLiesOverIt)
{
    startWide();
    const QPointF mark = placeOf("unread-indicator-image", *screens()[1]);
    tap(mark);
    ASSERT_TRUE(editor().isChooserOpen());
    EXPECT_EQ(model().attention(), "unread-indicator-image");
    EXPECT_EQ(model().caption(), "Unread Indicator");
    EXPECT_TRUE(cell(editor().source().indexPathOf(indexOf("unread-indicator-image"))))
        << "in sight";
    const ColorPickerViewController *chooser = editor().colorPickerView();
    tap(placeOf(background, conversation()));
    EXPECT_EQ(editor().colorPickerView(), chooser) << "the chooser is up";
    for (int i = 0; i < 20; ++i) { // more than there are stops
        key(Qt::Key_Tab);
        EXPECT_TRUE(chooser->view()->hasActiveFocus()) << i;
    }
    EXPECT_EQ(model().attention(), "unread-indicator-image");
    editor().prepareForTermination();

    startWide();
    tap(placeOf("balloon-corner-style", conversation()));
    ASSERT_TRUE(window().actionSheet());
    EXPECT_EQ(window().actionSheet()->title(), "Balloon Corners");
    tap(placeOf(background, conversation()));
    EXPECT_FALSE(editor().isChooserOpen()) << "the sheet is up";
}

TEST_F(PreviewPaneTest, OutlinesTheRowThatHasTheKeyboard)
{
    startWide();
    const QImage before = grab();
    table().forceActiveFocus(Qt::TabFocusReason);
    key(Qt::Key_Home);
    EXPECT_EQ(model().attention(), green);
    const QImage after = grab();
    const QRectF part = model().scene().outline(PreviewScreen::Conversation, green).boundingRect();
    const QRectF frame = conversation().mapRectToScene(conversation().fromScene().mapRect(part));
    QRect changed;
    for (int y = 0; y < after.height(); ++y)
        for (int x = int(conversation().mapToScene({}).x()); x < after.width(); ++x)
            if (y > 70 && before.pixel(x, y) != after.pixel(x, y)) // below the caption
                changed |= QRect(x, y, 1, 1);
    EXPECT_LT((QRectF(changed).center() - frame.center()).manhattanLength(), 4.0);
    EXPECT_NEAR(changed.width(), frame.width(), 8.0);
}

TEST_F(PreviewPaneTest, KeysGoFromPartToPartAndAssistiveTechnologyFindsThem)
{
    startWide();
    conversation().forceActiveFocus(Qt::TabFocusReason);
    const auto parts = model().scene().parts(PreviewScreen::Conversation);
    ASSERT_GT(parts.size(), 8U);
    key(Qt::Key_Down);
    EXPECT_EQ(model().caption(), model().nameOf(parts[1].key));
    for (size_t i = 0; i < parts.size(); ++i)
        key(Qt::Key_Right);
    EXPECT_EQ(model().caption(), model().nameOf(parts.back().key));
    key(Qt::Key_Up);
    key(Qt::Key_Return);
    ASSERT_TRUE(editor().isChooserOpen());
    EXPECT_TRUE(editor().colorPickerView()->view()->hasActiveFocus());

    QAccessibleInterface *screen = QAccessible::queryAccessibleInterface(&conversation());
    ASSERT_TRUE(screen);
    ASSERT_EQ(screen->childCount(), int(parts.size()));
    QAccessibleInterface *first = screen->child(0);
    EXPECT_EQ(first->role(), QAccessible::Button);
    EXPECT_EQ(first->text(QAccessible::Name), model().nameOf(parts[0].key));
    const int index = indexOf(parts[0].key);
    editor().document().setColor(index, "#123456FF");
    EXPECT_EQ(first->text(QAccessible::Description), "#123456FF");
}

TEST_F(PreviewPaneTest, ComesAndGoesWithTheKeyAndIsRemembered)
{
    startWide();
    key(Qt::Key_P, Qt::ControlModifier);
    EXPECT_FALSE(window().hasPane());
    EXPECT_EQ(screen().width(), 420.0);
    stop();
    start({AppDelegate::Root::Editor, QSize(1060, 660)});
    EXPECT_FALSE(window().hasPane());
    key(Qt::Key_P, Qt::ControlModifier);
    EXPECT_TRUE(window().hasPane());
    EXPECT_FALSE(item("_previewButton")->isVisible());
    window().resize(600, 660);
    ASSERT_TRUE(QTest::qWaitFor([this] { return !window().hasPane(); }));
    EXPECT_TRUE(item("_previewButton")->isVisible());
}

TEST_F(PreviewPaneTest, AtPhoneSizeItIsAPageOverTheScreen)
{
    start();
    tap(item("_previewButton"));
    ASSERT_TRUE(window().presentedViewController());
    EXPECT_EQ(screens().size(), 2);
    EXPECT_FALSE(screens()[1]->isVisible()) << "one above the switch";
    tap(QPointF(4, 300)); // beside the screen; the row below takes nothing
    EXPECT_FALSE(editor().isChooserOpen());
    key(Qt::Key_Escape);
    EXPECT_FALSE(window().presentedViewController());

    tap(item("_previewButton"));
    tap(placeOf(background, conversation()));
    EXPECT_FALSE(window().presentedViewController());
    ASSERT_TRUE(editor().isChooserOpen());
    tap(QPointF(282, 10)); // "Preview" above the chooser's buttons
    ASSERT_TRUE(window().presentedViewController());
    editor().document().showPassingColor(indexOf(background), "#102030FF");
    EXPECT_TRUE(showsSoon(qRgb(0x10, 0x20, 0x30), placeOf(background, conversation())));
    const QString list = "list-background-image"; // behind the switch
    editor().document().showPassingColor(indexOf(list), "#405060FF");
    const QRectF screenSwitch = sceneFrame(
        window().presentedViewController()->view()->property("screenSwitch").value<UIView *>());
    tap(QPointF(screenSwitch.right() - 20, screenSwitch.center().y()));
    EXPECT_TRUE(showsSoon(qRgb(0x40, 0x50, 0x60), placeOf(list, *screens()[1])));
}
