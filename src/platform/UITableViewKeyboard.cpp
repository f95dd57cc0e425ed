// The table under the keyboard: arrows, Page, Home and End move a current row, which Enter and
// Space select. Shift+Enter presses the row long; the Menu key opens its menu, or does the same.
#include "platform/UITableView.h"

#include <QKeyEvent>

#include <algorithm>

void UITableView::keyPressEvent(QKeyEvent *event)
{
    const double page = _boundsHeight - _insetTop - headerHeight - _insetBottom;
    const int rowsPerPage = std::max(1, int(page / _rowHeight));
    constexpr int all = 1 << 30;
    int rows = 0;
    switch (event->key()) {
    case Qt::Key_Up:
        rows = -1;
        break;
    case Qt::Key_Down:
        rows = 1;
        break;
    case Qt::Key_PageUp:
        rows = -rowsPerPage;
        break;
    case Qt::Key_PageDown:
        rows = rowsPerPage;
        break;
    case Qt::Key_Home:
        rows = -all;
        break;
    case Qt::Key_End:
        rows = all;
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
    case Qt::Key_Menu:
        if (!event->isAutoRepeat())
            pressCurrentRow(event->key() == Qt::Key_Menu                     ? RowPress::Menu
                            : event->modifiers().testFlag(Qt::ShiftModifier) ? RowPress::Long
                                                                             : RowPress::Tap);
        return;
    default:
        event->ignore();
        return;
    }
    if (!_scrollEnabled)
        return;
    const NSIndexPath from = _currentRow.isValid() ? _currentRow : rowMovedBy({}, 0);
    setCurrentRow(_currentRow.isValid() || std::abs(rows) > 1 ? rowMovedBy(from, rows) : from);
    scrollToRow(_currentRow);
}

void UITableView::pressCurrentRow(RowPress press)
{
    scrollToRow(_currentRow); // the wheel may have moved it out of sight, where rows have no cells
    layoutIfNeeded();
    const NSIndexPath row = touchable(_currentRow);
    UITableViewCell *cell = cellForRowAtIndexPath(row);
    if (press == RowPress::Tap)
        selectRow(row);
    else if (_allowsSelection && press == RowPress::Menu)
        openMenu(row);
    else if (_allowsSelection && cell)
        cell->longPress();
}

void UITableView::focusInEvent(QFocusEvent *event)
{
    UIView::focusInEvent(event);
    const bool byKey =
        event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason;
    setCurrentRow(_currentRow.isValid() || !byKey ? _currentRow : rowMovedBy({}, 0));
}

void UITableView::focusOutEvent(QFocusEvent *event)
{
    UIView::focusOutEvent(event);
    setCurrentRow(_currentRow);
}

void UITableView::focusRow(NSIndexPath indexPath)
{
    scrollToRow(indexPath);
    layoutIfNeeded();
    forceActiveFocus();
    setCurrentRow(indexPath);
}

void UITableView::setCurrentRow(NSIndexPath indexPath)
{
    if (UITableViewCell *cell = cellForRowAtIndexPath(_currentRow))
        cell->setFocused(false);
    _currentRow = indexPath;
    if (UITableViewCell *cell = cellForRowAtIndexPath(indexPath))
        cell->setFocused(hasActiveFocus());
    emit focusedRowChanged();
}

/// The row that many rows further on, across sections without rows, held at both ends. From no row:
/// the first one in sight below the sticking header.
NSIndexPath UITableView::rowMovedBy(NSIndexPath from, int rows) const
{
    if (!from.isValid()) {
        const double top = _contentOffset + _insetTop + headerHeight;
        for (int section = std::max(0, sectionAt(top)); section < numberOfSections(); ++section)
            for (int row = rowsBetween(section, top, contentHeight()).first;
                 row < numberOfRows(section); ++row)
                if (rectForRow({section, row}).top() >= top)
                    return {section, row};
        return {};
    }
    NSIndexPath to = from;
    while (rows != 0) {
        const int wanted = to.row + rows;
        const int last = numberOfRows(to.section) - 1;
        if (0 <= wanted && wanted <= last)
            return {to.section, wanted};
        const int step = rows > 0 ? 1 : -1;
        int section = to.section + step;
        while (section >= 0 && section < numberOfSections() && numberOfRows(section) == 0)
            section += step;
        if (section < 0 || section >= numberOfSections())
            return {to.section, step > 0 ? last : 0};
        rows -= step > 0 ? last - to.row + 1 : -(to.row + 1);
        to = {section, step > 0 ? 0 : numberOfRows(section) - 1};
    }
    return to;
}

void UITableView::scrollToRow(NSIndexPath indexPath)
{
    if (!indexPath.isValid())
        return;
    const QRectF row = rectForRow(indexPath);
    const double highest = row.bottom() + _insetBottom - _boundsHeight;
    const double lowest = row.top() - headerHeight - _insetTop;
    if (_contentOffset > lowest)
        emit scrollRequested(lowest);
    else if (_contentOffset < highest)
        emit scrollRequested(std::min(highest, lowest));
}
