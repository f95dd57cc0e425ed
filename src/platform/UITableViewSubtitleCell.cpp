#include "platform/UITableViewSubtitleCell.h"

#include "platform/QMLViews.h"

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

void UITableViewSubtitleCell::layoutSubviews()
{
    constexpr double margin = 15.0;
    constexpr double accessory = 36.0;
    constexpr double details = 19.0;
    const double textWidth = width() - margin - accessory;
    if (_detailTextLabel.text().isEmpty()) {
        _textLabel.setFrame({margin, 0.0, textWidth, height()});
        return;
    }
    _textLabel.setFrame({margin, 2.0, textWidth, height() - details - 2.0});
    _detailTextLabel.setFrame({margin, height() - details, textWidth, details - 3.0});
}
