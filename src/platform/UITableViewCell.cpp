#include "platform/UITableViewCell.h"

void UITableViewCell::setBackgroundColor(const QColor &color)
{
    if (_backgroundColor == color)
        return;
    _backgroundColor = color;
    emit backgroundColorChanged();
}

void UITableViewCell::setSelected(bool selected, bool)
{
    if (_selected == selected)
        return;
    _selected = selected;
    emit selectedChanged();
}

void UITableViewCell::setFocused(bool focused)
{
    if (_focused == focused)
        return;
    _focused = focused;
    emit focusedChanged();
}
