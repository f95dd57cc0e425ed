// A table: sections of rows of one height, each section under a header that sticks while its rows
// scroll.
//
// The item is as tall as the whole table and lies in a Flickable (TableScroller.qml), which moves
// it and tells it where it stands. Only the rows in sight have cells: a cell that scrolls out goes
// to the back of a pool and the next row asks the front of the pool first, so a table of any length
// lives on a screenful of cells. What a cell shows is decided by the data source alone.
//
// Not Qt's ListView. That pins a section's header at 0 whatever the margin above, lets its origin
// drift and estimates its height, destroys the cells in sight when the data is loaded anew, and has
// no header for a section without rows.
//
//   content y:  0        first header (28 points), then its rows, then the next header, ...
//   offset:     -inset.top at rest; a header sticks at offset + inset.top
#pragma once

#include "platform/UITableViewCell.h"
#include "platform/UITableViewHeader.h"
#include "platform/foundation/NSIndexPath.h"

#include <QHash>
#include <QQmlComponent>
#include <QQueue>
#include <QTimer>

#include <map>
#include <optional>
#include <vector>

class UITableView;

class UITableViewDataSource
{
public:
    virtual ~UITableViewDataSource() = default;
    virtual int numberOfSectionsInTableView() const = 0;
    virtual QString titleForHeaderInSection(int section) const = 0;
    virtual int numberOfRowsInSection(int section) const = 0;
    /// A configured cell: one dequeued from the table, or a new one, which the table then owns.
    virtual UITableViewCell *cellForRowAtIndexPath(UITableView &table, NSIndexPath indexPath) = 0;
};

class UITableViewDelegate
{
public:
    virtual ~UITableViewDelegate() = default;
    /// Points. All rows of a table share one height, so it is asked for the first row only.
    virtual double heightForRowAtIndexPath(NSIndexPath indexPath) const = 0;
    virtual void willDisplayHeaderView(UITableViewHeader &header, int section) = 0;
    virtual void didSelectRowAtIndexPath(NSIndexPath indexPath) = 0;
    virtual void didDeselectRowAtIndexPath(NSIndexPath indexPath) = 0;
    /// Asked for by a secondary click or the Menu key. False where the row has no menu; it is
    /// pressed long then.
    virtual bool showMenuForRowAtIndexPath(NSIndexPath) { return false; }
};

class UITableView : public UIView
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(double contentHeight READ contentHeight NOTIFY contentHeightChanged FINAL)
    Q_PROPERTY(double contentOffset READ contentOffset WRITE setContentOffset NOTIFY
                   contentOffsetChanged FINAL)
    Q_PROPERTY(double boundsHeight READ boundsHeight WRITE setBoundsHeight NOTIFY
                   boundsHeightChanged FINAL)
    Q_PROPERTY(double insetTop READ insetTop NOTIFY contentInsetChanged FINAL)
    Q_PROPERTY(double insetBottom READ insetBottom NOTIFY contentInsetChanged FINAL)
    Q_PROPERTY(bool scrollEnabled READ isScrollEnabled NOTIFY scrollEnabledChanged FINAL)
    Q_PROPERTY(QQmlComponent *headerComponent MEMBER _headerComponent FINAL REQUIRED)

public:
    static constexpr double headerHeight = 28.0;

    explicit UITableView(QQuickItem *parent = nullptr);

    /// Neither is owned; both must outlive the table or be taken back with nullptr.
    void setDataSource(UITableViewDataSource *dataSource);
    void setDelegate(UITableViewDelegate *delegate) { _delegate = delegate; }

    /// Room above the first header and below the last row, in points, over which rows still pass.
    void setContentInset(double top, double bottom);
    double insetTop() const { return _insetTop; }
    double insetBottom() const { return _insetBottom; }

    /// Asks the data source for everything anew; cells in sight go through the pool. Keeps the
    /// offset.
    void reloadData();
    /// The cell that shows a row, or null when the row is out of sight.
    UITableViewCell *cellForRowAtIndexPath(NSIndexPath indexPath) const;
    /// The rows that have cells, from the top.
    std::vector<NSIndexPath> indexPathsForVisibleRows() const;
    /// The row that a cell shows now; invalid when it shows none.
    NSIndexPath indexPathForCell(const UITableViewCell *cell) const;
    /// A cell that has left the screen, oldest first, as it was; null when there is none.
    UITableViewCell *dequeueReusableCellWithIdentifier(const QString &identifier);
    /// Header of a section in sight, or null.
    UITableViewHeader *headerViewForSection(int section) const;

    /// Where a row or a header lies in the content, in points; indexes must be in range.
    QRectF rectForRow(NSIndexPath indexPath) const;
    QRectF rectForHeader(int section) const;

    bool isScrollEnabled() const { return _scrollEnabled; }
    void setScrollEnabled(bool enabled);
    bool allowsSelection() const { return _allowsSelection; }
    void setAllowsSelection(bool allows) { _allowsSelection = allows; }

    /// Marks a row as selected and tells the delegate. Nothing while selection is off.
    void selectRow(NSIndexPath indexPath);
    void deselectRow(NSIndexPath indexPath, bool animated);

    /// Follow a finger or the mouse: pressed rows are highlighted and may be long-pressed, a tapped
    /// row is selected unless a long press has begun. Points are in content coordinates; places
    /// without a row are ignored, and rows whose cells take no interaction.
    Q_INVOKABLE void setPressed(bool pressed, QPointF point);
    Q_INVOKABLE void tap(QPointF point);
    /// A click of the other button: the row's menu, or what a long press does.
    Q_INVOKABLE void secondaryTap(QPointF point);
    /// Follows a pointer that is over the table, or has left it.
    Q_INVOKABLE void setHovered(bool hovered, QPointF point);

    /// Brings a row into sight below the sticking header and above the inset.
    void scrollToRow(NSIndexPath indexPath);
    /// The same, and gives it the keyboard.
    void focusRow(NSIndexPath indexPath);
    /// Scrolls there, and marks it for a moment.
    void flashRow(NSIndexPath indexPath);

    double contentHeight() const;
    double contentOffset() const { return _contentOffset; }
    void setContentOffset(double offset);
    double boundsHeight() const { return _boundsHeight; }
    void setBoundsHeight(double height);

    /// Brings cells and headers up to date at once instead of before the next frame.
    void layoutIfNeeded() { updatePolish(); }
    /// Cells in existence, in sight or pooled.
    int numberOfCells() const { return _numberOfCells; }
    /// The row that has the keyboard; invalid for none.
    NSIndexPath focusedRow() const { return hasActiveFocus() ? _currentRow : NSIndexPath(); }

    /// The row under the pointer; invalid for none.
    NSIndexPath hoveredRow() const { return _hoveredRow; }

    void layoutSubviews() override { polish(); }

signals:
    void contentHeightChanged();
    void contentOffsetChanged();
    void boundsHeightChanged();
    void contentInsetChanged();
    void scrollEnabledChanged();
    /// The keyboard wants this offset; the scroller obeys.
    void scrollRequested(double offset);
    /// The row that has the keyboard is another one, or none any more.
    void focusedRowChanged();
    /// Another row is under the pointer, or none any more.
    void hoveredRowChanged();

protected:
    void updatePolish() override;
    void keyPressEvent(QKeyEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

private:
    int numberOfSections() const { return int(_sectionTops.size()) - 1; }
    int numberOfRows(int section) const;
    NSIndexPath rowAt(double y) const;
    /// The row itself, or none when its cell takes no interaction.
    NSIndexPath touchable(NSIndexPath indexPath) const;
    bool isMarked(NSIndexPath indexPath) const;
    void cancelTouches();
    void updateHoveredRow();
    enum class RowPress { Tap, Long, Menu };
    void pressCurrentRow(RowPress press);
    int sectionAt(double y) const;
    /// Rows of a section that touch the stretch from top to bottom: first, and one past the last.
    std::pair<int, int> rowsBetween(int section, double top, double bottom) const;
    void recycleCells(double top, double bottom);
    void showCell(NSIndexPath indexPath);
    void showHeaders(int firstSection, int lastSection);
    void setCurrentRow(NSIndexPath indexPath);
    NSIndexPath rowMovedBy(NSIndexPath from, int rows) const;
    void openMenu(NSIndexPath indexPath);

    UITableViewDataSource *_dataSource = nullptr;
    UITableViewDelegate *_delegate = nullptr;
    QQmlComponent *_headerComponent = nullptr;
    std::vector<double> _sectionTops{0.0}; // y of every section, and the end of the content
    double _rowHeight = 44.0;
    double _insetTop = 0.0;
    double _insetBottom = 0.0;
    double _contentOffset = 0.0;
    double _boundsHeight = 0.0;
    bool _scrollEnabled = true;
    bool _allowsSelection = true;
    int _numberOfCells = 0;
    std::map<NSIndexPath, UITableViewCell *> _visibleCells;
    QHash<QString, QQueue<UITableViewCell *>> _pool;
    std::map<int, UITableViewHeader *> _visibleHeaders;
    QQueue<UITableViewHeader *> _headerPool;
    NSIndexPath _selectedRow;
    NSIndexPath _pressedRow;
    UITableViewCell *_touchedCell = nullptr; // while a finger rests on it
    NSIndexPath _currentRow;                 // the keyboard's; none until a key has been used
    NSIndexPath _flashingRow;
    std::optional<double> _hover; // the pointer's distance from the top of the bounds
    NSIndexPath _hoveredRow;
    QTimer _flash{this}; // named "flash"
};
