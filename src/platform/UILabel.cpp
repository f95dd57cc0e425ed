#include "platform/UILabel.h"

void UILabel::setText(const QString &text)
{
    if (_text == text)
        return;
    _text = text;
    emit textChanged();
}

void UILabel::setTextColor(const QColor &color)
{
    if (_textColor == color)
        return;
    _textColor = color;
    emit textColorChanged();
}

void UILabel::setFrame(const QRectF &frame)
{
    if (_frame == frame)
        return;
    _frame = frame;
    emit frameChanged();
}
