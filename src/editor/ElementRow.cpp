#include "editor/ElementRow.h"

#include "theme/ColorText.h"

namespace
{
void setTextColor(CustomTableCell &cell, bool isBlack)
{
    for (UILabel *label : {cell.name(), cell.description(), cell.colorLabel()})
        label->setTextColor(isBlack ? Qt::black : Qt::white);
}
} // namespace

void ElementRow::paint(CustomTableCell &cell, const ElementRecord &record)
{
    const auto colorText = record.shownColor();
    const UIColor color = colorText ? colorFromHexString(*colorText) : UIColor::whiteColor();
    cell.name()->setText(record.name);
    cell.description()->setText(record.description);
    cell.colorLabel()->setText(colorText.value_or(record.shownOption()));
    cell.setBackgroundColor(color.qColor());
    setTextColor(cell, prefersBlackText(color));
}

void ElementRow::paintChosenColor(CustomTableCell &cell, const std::optional<UIColor> &color)
{
    cell.colorLabel()->setText(color ? hexStringForColor(*color) : QString(" "));
    setTextColor(cell, !color || prefersBlackText(*color));
}

ElementRowFade::ElementRowFade(QObject *parent) : QObject(parent)
{
    _animation.setObjectName("rowFade");
    _animation.setDuration(300);
    _animation.setEasingCurve(QEasingCurve::InOutSine);
    connect(&_animation, &QVariantAnimation::valueChanged, this, [this](const QVariant &ground) {
        if (_cell)
            _cell->setBackgroundColor(ground.value<QColor>());
    });
    connect(&_animation, &QAbstractAnimation::finished, this, [this] { _cell.clear(); });
}

void ElementRowFade::start(CustomTableCell &cell, const QColor &from, const QColor &to)
{
    _animation.setCurrentTime(_animation.duration());
    _cell = &cell;
    _animation.setStartValue(from);
    _animation.setEndValue(to);
    _animation.start();
}

void ElementRowFade::forget(const CustomTableCell *cell)
{
    if (cell == _cell)
        _cell.clear();
}
