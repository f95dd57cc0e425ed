#include "views/CustomTableCell.h"

#include "platform/QMLViews.h"

CustomTableCell::CustomTableCell(QQuickItem *parent) : UITableViewCell(parent)
{
    setSize({320.0, 50.0}); // a row of the phone: most tables never lay the texts out a second time
}

CustomTableCell *CustomTableCell::initWithStyle(Style style, const QString &reuseIdentifier,
                                                QQmlEngine &engine)
{
    auto *cell =
        qobject_cast<CustomTableCell *>(QMLViews::create(engine, "views/CustomTableCellView.qml"));
    cell->prepare(style, reuseIdentifier);
    return cell;
}

void CustomTableCell::setLocked(bool locked)
{
    if (_locked == locked)
        return;
    _locked = locked;
    emit lockedChanged();
}

void CustomTableCell::setFinding(const QString &finding)
{
    if (_finding == finding)
        return;
    _finding = finding;
    emit findingChanged();
}

void CustomTableCell::layoutSubviews()
{
    // The description overlaps the name's lower edge by 5 points, the caption the name's right end,
    // as on the phone.
    const double nameHeight = height() - 20.0;
    _name.setFrame({5.0, 0.0, width() - 60.0, nameHeight});
    _description.setFrame({5.0, nameHeight - 5.0, width() - 5.0, 25.0});
    _colorLabel.setFrame({width() - 75.0, 0.0, 70.0, 15.0});
}

void CustomTableCell::setSelected(bool selected, bool animated)
{
    UITableViewCell::setSelected(selected, animated);
}
