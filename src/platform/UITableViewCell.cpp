#include "platform/UITableViewCell.h"

#include "platform/QMLViews.h"

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
    makeMarks();
    emit selectedChanged();
}

void UITableViewCell::setFocused(bool focused)
{
    if (_focused == focused)
        return;
    _focused = focused;
    makeMarks();
    emit focusedChanged();
}

void UITableViewCell::makeMarks()
{
    QQmlEngine *engine = qmlEngine(this);
    if (_marks || !engine) // a cell without a look of its own has none for this either
        return;
    _marks =
        QMLViews::create(*engine, "platform/CellMarks.qml", {{"cell", QVariant::fromValue(this)}});
    _marks->setParent(this);
    _marks->setParentItem(this);
}
