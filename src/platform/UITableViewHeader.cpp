#include "platform/UITableViewHeader.h"

void UITableViewHeader::setTintColor(const QColor &color)
{
    if (_tintColor == color)
        return;
    _tintColor = color;
    emit tintColorChanged();
}

void UITableViewHeader::layoutSubviews()
{
    constexpr double margin = 15.0;
    _textLabel.setFrame({margin, 0.0, width() - 2.0 * margin, height()});
}
