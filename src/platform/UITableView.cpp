#include "platform/UITableView.h"

#include <QKeyEvent>

#include <algorithm>
#include <cmath>
#include <utility>

UITableView::UITableView(QQuickItem *parent) : UIView(parent)
{
    setActiveFocusOnTab(true);
    _flash.setObjectName("flash");
    _flash.setSingleShot(true);
    _flash.setInterval(400);
    connect(&_flash, &QTimer::timeout, this, [this] {
        const NSIndexPath flashed = std::exchange(_flashingRow, NSIndexPath{});
        if (UITableViewCell *cell = cellForRowAtIndexPath(flashed))
            cell->setSelected(isMarked(flashed), true);
    });
}

bool UITableView::isMarked(NSIndexPath indexPath) const
{
    return indexPath == _selectedRow || indexPath == _pressedRow || indexPath == _flashingRow;
}

void UITableView::setDataSource(UITableViewDataSource *dataSource)
{
    _dataSource = dataSource;
    reloadData();
}

void UITableView::setContentInset(double top, double bottom)
{
    _insetTop = top;
    _insetBottom = bottom;
    emit contentInsetChanged();
    emit scrollRequested(-top);
    polish();
}

void UITableView::setScrollEnabled(bool enabled)
{
    if (_scrollEnabled == enabled)
        return;
    _scrollEnabled = enabled;
    emit scrollEnabledChanged();
}

void UITableView::setContentOffset(double offset)
{
    if (_contentOffset == offset)
        return;
    _contentOffset = offset;
    cancelTouches();
    updateHoveredRow();
    emit contentOffsetChanged();
    polish();
}

void UITableView::setBoundsHeight(double height)
{
    if (_boundsHeight == height)
        return;
    _boundsHeight = height;
    emit boundsHeightChanged();
    polish();
}

double UITableView::contentHeight() const
{
    return _sectionTops.back();
}

void UITableView::reloadData()
{
    cancelTouches();
    for (const auto &[indexPath, cell] : _visibleCells)
        _pool[cell->reuseIdentifier()].enqueue(cell);
    _visibleCells.clear();

    const int sections = _dataSource ? _dataSource->numberOfSectionsInTableView() : 0;
    _sectionTops.assign(1, 0.0);
    _sectionTops.reserve(std::size_t(sections) + 1);
    if (sections > 0 && _delegate)
        _rowHeight = _delegate->heightForRowAtIndexPath({0, 0});
    for (int section = 0; section < sections; ++section)
        _sectionTops.push_back(_sectionTops.back() + headerHeight +
                               _dataSource->numberOfRowsInSection(section) * _rowHeight);
    _selectedRow = _pressedRow = _flashingRow = {};
    emit contentHeightChanged();
    const bool hadCurrentRow = std::exchange(_currentRow, NSIndexPath{}).isValid();
    updateHoveredRow(); // first: who is told asks for that row, too
    if (hadCurrentRow)
        emit focusedRowChanged();
    polish();
}

UITableViewCell *UITableView::cellForRowAtIndexPath(NSIndexPath indexPath) const
{
    const auto found = _visibleCells.find(indexPath);
    return found == _visibleCells.end() ? nullptr : found->second;
}

std::vector<NSIndexPath> UITableView::indexPathsForVisibleRows() const
{
    std::vector<NSIndexPath> rows;
    for (const auto &entry : _visibleCells)
        rows.push_back(entry.first);
    return rows;
}

NSIndexPath UITableView::indexPathForCell(const UITableViewCell *cell) const
{
    const auto found =
        std::ranges::find(_visibleCells, cell, [](const auto &entry) { return entry.second; });
    return found == _visibleCells.end() ? NSIndexPath{} : found->first;
}

UITableViewCell *UITableView::dequeueReusableCellWithIdentifier(const QString &identifier)
{
    const auto pool = _pool.find(identifier);
    return pool == _pool.end() || pool->isEmpty() ? nullptr : pool->dequeue();
}

UITableViewHeader *UITableView::headerViewForSection(int section) const
{
    const auto found = _visibleHeaders.find(section);
    return found == _visibleHeaders.end() ? nullptr : found->second;
}

int UITableView::numberOfRows(int section) const
{
    const double height = _sectionTops[section + 1] - _sectionTops[section] - headerHeight;
    return int(std::lround(height / _rowHeight));
}

QRectF UITableView::rectForRow(NSIndexPath indexPath) const
{
    Q_ASSERT(indexPath.isValid() && indexPath.section < numberOfSections() &&
             indexPath.row < numberOfRows(indexPath.section));
    const double top = _sectionTops[indexPath.section] + headerHeight + indexPath.row * _rowHeight;
    return {0.0, top, width(), _rowHeight};
}

QRectF UITableView::rectForHeader(int section) const
{
    Q_ASSERT(0 <= section && section < numberOfSections());
    const double natural = _sectionTops[section];
    const double sticking = std::min(_contentOffset + _insetTop, // pushed out by the next header
                                     _sectionTops[section + 1] - headerHeight);
    return {0.0, std::max(natural, sticking), width(), headerHeight};
}

int UITableView::sectionAt(double y) const
{
    // The first top that is beyond y ends the section; y outside the content gives the nearest one.
    const auto end = std::upper_bound(_sectionTops.begin(), _sectionTops.end(), y);
    return std::clamp(int(end - _sectionTops.begin()) - 1, 0, numberOfSections() - 1);
}

NSIndexPath UITableView::rowAt(double y) const
{
    if (y < 0.0 || y >= contentHeight())
        return {};
    const int section = sectionAt(y);
    if (rectForHeader(section).top() <= y && y < rectForHeader(section).bottom())
        return {};
    const double inRows = y - _sectionTops[section] - headerHeight;
    return inRows < 0.0 ? NSIndexPath{} : NSIndexPath{section, int(inRows / _rowHeight)};
}

std::pair<int, int> UITableView::rowsBetween(int section, double top, double bottom) const
{
    const double origin = _sectionTops[section] + headerHeight;
    const double rows = numberOfRows(section);
    const double first = std::clamp(std::floor((top - origin) / _rowHeight), 0.0, rows);
    const double last = std::clamp(std::ceil((bottom - origin) / _rowHeight), first, rows);
    return {int(first), int(last)};
}

void UITableView::updatePolish()
{
    const double top = _contentOffset;
    const double bottom = top + _boundsHeight;
    recycleCells(top, bottom);
    if (!_dataSource || numberOfSections() == 0 || _boundsHeight <= 0.0) {
        showHeaders(0, -1);
        return;
    }
    const int firstSection = sectionAt(top);
    const int lastSection = sectionAt(bottom);
    for (int section = firstSection; section <= lastSection; ++section) {
        const auto [first, last] = rowsBetween(section, top, bottom);
        for (int row = first; row < last; ++row)
            showCell({section, row});
    }
    showHeaders(firstSection, lastSection);
    // What the reload or the scroll left over stays in the pool, out of sight.
    for (const auto &pool : std::as_const(_pool))
        for (UITableViewCell *cell : pool)
            cell->setVisible(false);
}

void UITableView::recycleCells(double top, double bottom)
{
    std::erase_if(_visibleCells, [&](const auto &entry) {
        const QRectF rect = rectForRow(entry.first);
        if (rect.bottom() > top && rect.top() < bottom)
            return false;
        _pool[entry.second->reuseIdentifier()].enqueue(entry.second);
        return true;
    });
}

void UITableView::showCell(NSIndexPath indexPath)
{
    UITableViewCell *&cell = _visibleCells[indexPath];
    if (!cell) {
        cell = _dataSource->cellForRowAtIndexPath(*this, indexPath);
        if (cell->parent() != this) {
            cell->setParent(this);
            cell->setParentItem(this);
            ++_numberOfCells;
        }
        cell->setSelected(isMarked(indexPath), false);
        cell->setFocused(indexPath == _currentRow && hasActiveFocus());
    }
    cell->setFrame(rectForRow(indexPath));
    cell->setVisible(true);
}

void UITableView::showHeaders(int firstSection, int lastSection)
{
    std::erase_if(_visibleHeaders, [&](const auto &entry) {
        if (firstSection <= entry.first && entry.first <= lastSection)
            return false;
        entry.second->setVisible(false);
        _headerPool.enqueue(entry.second);
        return true;
    });
    for (int section = firstSection; section <= lastSection; ++section) {
        UITableViewHeader *&header = _visibleHeaders[section];
        if (!header) {
            if (!_headerPool.isEmpty()) {
                header = _headerPool.dequeue();
            } else {
                header = qobject_cast<UITableViewHeader *>(_headerComponent->create());
                header->setParent(this);
                header->setParentItem(this);
            }
        }
        header->setFrame(rectForHeader(section)); // before the text, to lay it out once
        header->textLabel()->setText(_dataSource->titleForHeaderInSection(section));
        if (_delegate)
            _delegate->willDisplayHeaderView(*header, section);
        header->setVisible(true);
    }
}

void UITableView::selectRow(NSIndexPath indexPath)
{
    if (!_allowsSelection || !indexPath.isValid())
        return;
    if (_selectedRow.isValid() && _selectedRow != indexPath) {
        const NSIndexPath previous = _selectedRow;
        deselectRow(previous, false);
        if (_delegate)
            _delegate->didDeselectRowAtIndexPath(previous);
    }
    _selectedRow = indexPath;
    if (UITableViewCell *cell = cellForRowAtIndexPath(indexPath))
        cell->setSelected(true, false);
    if (_delegate)
        _delegate->didSelectRowAtIndexPath(indexPath);
}

void UITableView::deselectRow(NSIndexPath indexPath, bool animated)
{
    if (_selectedRow == indexPath)
        _selectedRow = {};
    if (UITableViewCell *cell = cellForRowAtIndexPath(indexPath))
        cell->setSelected(false, animated);
}

void UITableView::flashRow(NSIndexPath indexPath)
{
    if (const NSIndexPath flashing = std::exchange(_flashingRow, indexPath); flashing != indexPath)
        if (UITableViewCell *cell = cellForRowAtIndexPath(flashing))
            cell->setSelected(isMarked(flashing), false);
    scrollToRow(indexPath);
    layoutIfNeeded();
    if (UITableViewCell *cell = cellForRowAtIndexPath(indexPath))
        cell->setSelected(true, false);
    _flash.start();
}
