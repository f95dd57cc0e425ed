#include "platform/UITableViewCell.h"

#include "platform/QMLViews.h"

#include <algorithm>

void UITableViewCell::prepare(Style style, const QString &reuseIdentifier)
{
    _style = style;
    _reuseIdentifier = reuseIdentifier;
}

void UITableViewCell::setBackgroundColor(const QColor &color)
{
    if (_backgroundColor == color)
        return;
    _backgroundColor = color;
    emit backgroundColorChanged();
}

void UITableViewCell::setSelected(bool selected, bool animated)
{
    if (_selected == selected)
        return;
    _selected = selected;
    _fadesMark = animated;
    emit fadesMarkChanged(); // first: the mark reacts to the other signal
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

void UITableViewCell::setSelectionStyle(SelectionStyle style)
{
    if (_selectionStyle == style)
        return;
    _selectionStyle = style;
    emit selectedChanged();
}

void UITableViewCell::setUserInteractionEnabled(bool enabled)
{
    if (_userInteractionEnabled == enabled)
        return;
    _userInteractionEnabled = enabled;
    emit userInteractionEnabledChanged();
}

void UITableViewCell::setAccessoryType(AccessoryType type)
{
    if (_accessoryType == type)
        return;
    _accessoryType = type;
    emit accessoryTypeChanged();
}

void UITableViewCell::addGestureRecognizer(std::unique_ptr<UILongPressGestureRecognizer> recognizer)
{
    recognizer->setView(this);
    connect(recognizer.get(), &UILongPressGestureRecognizer::began, this,
            [this, begun = recognizer.get()] { failOthers(begun); });
    _gestureRecognizers.push_back(std::move(recognizer));
}

void UITableViewCell::failOthers(const UILongPressGestureRecognizer *begun)
{
    for (const auto &recognizer : _gestureRecognizers)
        if (recognizer.get() != begun)
            recognizer->touchesCancelled();
}

void UITableViewCell::touchesBegan()
{
    for (const auto &recognizer : _gestureRecognizers)
        recognizer->touchesBegan();
}

// By index: an action may have the cell configured anew, which can add recognisers.
void UITableViewCell::touchesEnded()
{
    for (std::size_t i = 0; i < _gestureRecognizers.size(); ++i)
        _gestureRecognizers[i]->touchesEnded();
}

void UITableViewCell::touchesCancelled()
{
    for (std::size_t i = 0; i < _gestureRecognizers.size(); ++i)
        _gestureRecognizers[i]->touchesCancelled();
}

void UITableViewCell::longPress()
{
    if (!_gestureRecognizers.empty())
        _gestureRecognizers.front()->perform();
}

bool UITableViewCell::isLongPressed() const
{
    return std::ranges::any_of(_gestureRecognizers, [](const auto &recognizer) {
        return recognizer->state() == UILongPressGestureRecognizer::State::Began;
    });
}

void UITableViewCell::makeMarks()
{
    QQmlEngine *engine = qmlEngine(this);
    if (_marks || !engine) // made in code alone, it is not drawn: nothing to mark
        return;
    _marks =
        QMLViews::create(*engine, "platform/CellMarks.qml", {{"cell", QVariant::fromValue(this)}});
    _marks->setParent(this);
    _marks->setParentItem(this);
}
