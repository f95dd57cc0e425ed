#include "platform/UITableViewSubtitleCell.h"

#include "platform/QMLViews.h"

namespace
{
constexpr double accessoryWidth = 36.0;
} // namespace

UITableViewSubtitleCell::UITableViewSubtitleCell(QQuickItem *parent) : UITableViewCell(parent)
{
    connect(&_detailTextLabel, &UILabel::textChanged, this, [this] { layoutSubviews(); });
    setSize({320.0, 44.0});
}

UITableViewSubtitleCell *
UITableViewSubtitleCell::initWithReuseIdentifier(const QString &reuseIdentifier, QQmlEngine &engine)
{
    auto *cell = qobject_cast<UITableViewSubtitleCell *>(
        QMLViews::create(engine, "platform/SubtitleCellView.qml"));
    cell->prepare(Style::Subtitle, reuseIdentifier);
    return cell;
}

QString UITableViewSubtitleCell::accessoryText() const
{
    switch (accessoryType()) {
    case AccessoryType::DisclosureIndicator:
        return u"\u203A"_qs;
    case AccessoryType::Checkmark:
        return u"\u2713"_qs;
    case AccessoryType::None:
        break;
    }
    return {};
}

QString UITableViewSubtitleCell::accessoryName() const
{
    switch (accessoryType()) {
    case AccessoryType::DisclosureIndicator:
        return tr("Opens another screen");
    case AccessoryType::Checkmark:
        return tr("Checked");
    case AccessoryType::None:
        break;
    }
    return {};
}

void UITableViewSubtitleCell::setPicture(const QImage &pixels, double scale)
{
    if (picture().cacheKey() == pixels.cacheKey())
        return;
    if (!_picture)
        _picture = new CALayer(this);
    _picture->setPixels(pixels, scale);
    _pictureSize = pixels.isNull() ? QSizeF(0.0, 0.0) : QSizeF(pixels.size()) / scale;
    layoutSubviews();
}

QRectF UITableViewSubtitleCell::pictureFrame() const
{
    const QPointF topLeft(width() - accessoryWidth - _pictureSize.width(),
                          (height() - _pictureSize.height()) / 2.0);
    return {topLeft, _pictureSize};
}

void UITableViewSubtitleCell::layoutSubviews()
{
    constexpr double margin = 15.0;
    constexpr double details = 19.0;
    constexpr double gap = 8.0;
    double textRight = width() - accessoryWidth;
    if (const QRectF frame = pictureFrame(); !frame.isEmpty()) {
        _picture->setPosition(frame.topLeft());
        _picture->setSize(frame.size());
        textRight = frame.left() - gap;
    }
    const double textWidth = textRight - margin;
    if (_detailTextLabel.text().isEmpty()) {
        _textLabel.setFrame({margin, 0.0, textWidth, height()});
        return;
    }
    _textLabel.setFrame({margin, 2.0, textWidth, height() - details - 2.0});
    _detailTextLabel.setFrame({margin, height() - details, textWidth, details - 3.0});
}
