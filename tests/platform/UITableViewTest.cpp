#include "platform/UITableView.h"

#include <QQmlComponent>
#include <QQmlEngine>
#include <QTest>

#include <gtest/gtest.h>

namespace
{
struct PlainCell : UITableViewCell {
};

// A table, on sections of given lengths.
struct UITableViewTest : testing::Test, UITableViewDataSource, UITableViewDelegate {
    int numberOfSectionsInTableView() const override { return int(sections.size()); }
    QString titleForHeaderInSection(int) const override { return {}; }
    int numberOfRowsInSection(int section) const override { return sections[section]; }
    UITableViewCell *cellForRowAtIndexPath(UITableView &, NSIndexPath indexPath) override
    {
        UITableViewCell *cell = table.dequeueReusableCellWithIdentifier("plain");
        if (!cell)
            cell = new PlainCell;
        cell->prepare(UITableViewCell::Style::Default, "plain");
        cell->setObjectName(QString("%1.%2").arg(indexPath.section).arg(indexPath.row));
        return cell;
    }
    double heightForRowAtIndexPath(NSIndexPath) const override { return 50.0; }
    void willDisplayHeaderView(UITableViewHeader &, int) override {}
    void didSelectRowAtIndexPath(NSIndexPath row) override { selected.push_back(row); }
    void didDeselectRowAtIndexPath(NSIndexPath row) override { deselected.push_back(row); }

    void show(std::vector<int> lengths)
    {
        sections = std::move(lengths);
        header.setData("import Tintloom\nUITableViewHeader {}", {});
        table.setProperty("headerComponent", QVariant::fromValue(&header));
        table.setWidth(320.0);
        table.setBoundsHeight(400.0);
        table.setDelegate(this);
        table.setDataSource(this);
        QObject::connect(&table, &UITableView::scrollRequested, &table,
                         [this](double offset) { scrollTo(offset); });
        table.setContentInset(20.0, 50.0);
        table.layoutIfNeeded();
    }
    void scrollTo(double offset)
    {
        table.setContentOffset(offset);
        table.layoutIfNeeded();
    }
    void key(Qt::Key key)
    {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
        QCoreApplication::sendEvent(&table, &event);
        table.layoutIfNeeded();
    }

    QQmlEngine engine;
    QQmlComponent header{&engine};
    std::vector<int> sections;
    std::vector<NSIndexPath> selected, deselected;
    UITableView table;
};
} // namespace

extern void qml_register_types_Tintloom();

TEST_F(UITableViewTest, HeadersStickUntilTheNextOnePushesThem)
{
    qml_register_types_Tintloom();
    engine.addImportPath("qrc:/qt/qml");
    show({3, 0, 10});
    // Tops: 0, 28 + 150 = 178, 178 + 28 = 206; end 206 + 28 + 500 = 734.
    EXPECT_EQ(table.contentHeight(), 734.0);
    EXPECT_EQ(table.contentOffset(), -20.0);
    const std::pair<double, double> cases[] = {
        {-60.0, 0.0},   // pulled down: at its place
        {-20.0, 0.0},   // at rest, so the first row starts 48 points down
        {30.0, 50.0},   // sticks 20 points below the top
        {140.0, 150.0}, // pushed by the header of the section without rows
    };
    for (const auto &[offset, first] : cases) {
        SCOPED_TRACE(offset);
        scrollTo(offset);
        ASSERT_TRUE(table.headerViewForSection(0));
        EXPECT_EQ(table.headerViewForSection(0)->y(), first);
        EXPECT_EQ(table.headerViewForSection(1)->y(), 178.0);
        EXPECT_EQ(table.headerViewForSection(2)->y(), 206.0);
    }
    EXPECT_EQ(table.cellForRowAtIndexPath({0, 2})->frame(), QRectF(0, 128, 320, 50));
    EXPECT_EQ(table.cellForRowAtIndexPath({2, 0})->frame(), QRectF(0, 234, 320, 50));

    // What a shorter table leaves over is hidden.
    sections = {1};
    table.reloadData();
    scrollTo(-20.0);
    EXPECT_EQ(std::ranges::count_if(table.childItems(), &QQuickItem::isVisible), 2);
}

TEST_F(UITableViewTest, SelectsWhatIsTappedUnlessToldNotTo)
{
    show({3, 0, 10});
    table.tap({10, 28 + 50 + 1});
    EXPECT_EQ(selected, (std::vector<NSIndexPath>{{0, 1}}));
    EXPECT_TRUE(table.cellForRowAtIndexPath({0, 1})->isSelected());

    for (const double y : {-5.0, 5.0, 190.0, 220.0, 800.0}) // above, three headers, below
        table.tap({10, y});
    EXPECT_EQ(selected.size(), 1u);

    table.tap({10, 234.0 + 1});
    EXPECT_EQ(selected.back(), (NSIndexPath{2, 0}));
    EXPECT_EQ(deselected, (std::vector<NSIndexPath>{{0, 1}}));
    EXPECT_FALSE(table.cellForRowAtIndexPath({0, 1})->isSelected());

    table.reloadData(); // forgets the selection
    table.layoutIfNeeded();
    EXPECT_FALSE(table.cellForRowAtIndexPath({2, 0})->isSelected());

    table.setAllowsSelection(false);
    table.setPressed(true, {10, 40});
    table.tap({10, 40});
    EXPECT_EQ(selected.size(), 2u);
    EXPECT_FALSE(table.cellForRowAtIndexPath({0, 0})->isSelected());
}

TEST_F(UITableViewTest, KeysWalkThroughRowsAcrossEmptySections)
{
    show({1, 0, 10, 0});
    table.setBoundsHeight(380.0);
    const std::pair<Qt::Key, NSIndexPath> steps[] = {
        {Qt::Key_Down, {0, 0}},     {Qt::Key_Down, {2, 0}}, {Qt::Key_Up, {0, 0}},
        {Qt::Key_PageDown, {2, 4}}, // 380 - 20 - 28 - 50 points hold five rows
        {Qt::Key_End, {2, 9}},      {Qt::Key_Down, {2, 9}}, {Qt::Key_PageUp, {2, 4}},
        {Qt::Key_Home, {0, 0}},
    };
    for (const auto &[pressed, row] : steps) {
        key(pressed);
        key(Qt::Key_Return);
        EXPECT_EQ(selected.back(), row);
        const QRectF current = table.rectForRow(row);
        EXPECT_GE(current.top(), table.contentOffset() + 20.0 + 28.0);
        EXPECT_LE(current.bottom(), table.contentOffset() + 380.0 - 50.0);
    }
    EXPECT_EQ(table.contentOffset(), -20.0);
    table.tap({10, -1}); // puts the keyboard on no row
    scrollTo(150.0);     // the header covers the third section down to 198, in its second row
    key(Qt::Key_Down);
    key(Qt::Key_Return);
    EXPECT_EQ(selected.back(), (NSIndexPath{2, 2}));
    sections.clear();
    table.reloadData();
    for (const Qt::Key k : {Qt::Key_Down, Qt::Key_PageUp, Qt::Key_End, Qt::Key_Return})
        key(k);
    table.tap({10, 10});
    EXPECT_EQ(selected.size(), std::size(steps) + 1);
}

TEST_F(UITableViewTest, ALongPressFiresOnceUnlessTheFingerLeaves)
{
    using State = UILongPressGestureRecognizer::State;
    show({5});
    UITableViewCell *cell = table.cellForRowAtIndexPath({0, 1});
    std::vector<State> heard;
    const auto hear = [&](const UILongPressGestureRecognizer &gesture) {
        heard.push_back(gesture.state());
    };
    cell->addGestureRecognizer(std::make_unique<UILongPressGestureRecognizer>(hear));
    UILongPressGestureRecognizer &recognizer = *cell->gestureRecognizers().front();
    const auto *timer = recognizer.findChild<QTimer *>("minimumPressDuration");
    const QPointF point = table.rectForRow({0, 1}).center();
    const std::function<void()> waysToLeave[] = {
        [&] { table.setPressed(false, point); },
        [&] { scrollTo(10.0); },
        [&] { table.reloadData(); },
    };
    for (const auto &leave : waysToLeave) {
        table.setPressed(true, point);
        EXPECT_TRUE(timer->isActive());
        leave();
        EXPECT_FALSE(timer->isActive());
        table.setPressed(false, point);
        table.layoutIfNeeded();
    }
    EXPECT_TRUE(heard.empty());

    recognizer.setMinimumPressDuration(0.0);
    table.setPressed(true, point);
    while (timer->isActive())
        QCoreApplication::processEvents();
    EXPECT_EQ(heard, std::vector{State::Began});
    table.tap(point); // the finger lifts, which is no tap any more
    table.setPressed(false, point);
    EXPECT_EQ(heard, (std::vector{State::Began, State::Ended}));
    EXPECT_TRUE(selected.empty());
    table.tap(point);
    EXPECT_EQ(selected, (std::vector<NSIndexPath>{{0, 1}}));
}

TEST_F(UITableViewTest, TellsTheRowUnderThePointerAlsoWhileTheContentMoves)
{
    show({3, 0, 20});
    std::vector<NSIndexPath> heard;
    QObject::connect(&table, &UITableView::hoveredRowChanged,
                     [&] { heard.push_back(table.hoveredRow()); });
    table.setHovered(true, table.rectForRow({0, 1}).center());
    table.setHovered(true, table.rectForRow({0, 1}).center() + QPointF(9.0, 9.0));
    scrollTo(30.0); // 50 further than at rest
    scrollTo(-20.0);
    table.setHovered(true, table.rectForHeader(0).center());
    table.setHovered(true, table.rectForRow({2, 0}).center());
    sections.clear();
    table.reloadData();
    table.setHovered(false, {});
    EXPECT_EQ(heard, (std::vector<NSIndexPath>{{0, 1}, {0, 2}, {0, 1}, {}, {2, 0}, {}}));
}
