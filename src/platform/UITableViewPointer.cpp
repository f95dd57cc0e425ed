// The table under fingers and pointers: presses mark rows and may be long, taps select them, a
// resting pointer hovers over one.
#include "platform/UITableView.h"

#include <utility>

NSIndexPath UITableView::touchable(NSIndexPath indexPath) const
{
    const UITableViewCell *cell = cellForRowAtIndexPath(indexPath);
    return cell && !cell->isUserInteractionEnabled() ? NSIndexPath{} : indexPath;
}

void UITableView::setPressed(bool pressed, QPointF point)
{
    const NSIndexPath row =
        pressed && _allowsSelection ? touchable(rowAt(point.y())) : NSIndexPath{};
    if (UITableViewCell *cell = std::exchange(_touchedCell, nullptr))
        cell->touchesEnded();
    if (row == _pressedRow)
        return;
    if (UITableViewCell *cell = cellForRowAtIndexPath(_pressedRow))
        cell->setSelected(_pressedRow == _selectedRow, true);
    _pressedRow = row;
    if (UITableViewCell *cell = cellForRowAtIndexPath(row)) {
        cell->setSelected(true, false);
        _touchedCell = cell;
        cell->touchesBegan();
    }
}

void UITableView::cancelTouches()
{
    if (UITableViewCell *cell = std::exchange(_touchedCell, nullptr))
        cell->touchesCancelled();
}

void UITableView::tap(QPointF point)
{
    setCurrentRow({});
    if (!_touchedCell || !_touchedCell->isLongPressed())
        selectRow(touchable(rowAt(point.y())));
}

void UITableView::secondaryTap(QPointF point)
{
    setCurrentRow({});
    if (_allowsSelection)
        openMenu(touchable(rowAt(point.y())));
}

void UITableView::openMenu(NSIndexPath indexPath)
{
    UITableViewCell *cell = cellForRowAtIndexPath(indexPath);
    if (cell && !(_delegate && _delegate->showMenuForRowAtIndexPath(indexPath)))
        cell->longPress();
}

void UITableView::setHovered(bool hovered, QPointF point)
{
    // The pointer stays where it is while the content moves below it.
    _hover = hovered ? std::optional(point.y() - _contentOffset) : std::nullopt;
    updateHoveredRow();
}

void UITableView::updateHoveredRow()
{
    const bool isInside = _hover && numberOfSections() > 0;
    const NSIndexPath row = isInside ? rowAt(*_hover + _contentOffset) : NSIndexPath{};
    if (std::exchange(_hoveredRow, row) != row)
        emit hoveredRowChanged();
}
