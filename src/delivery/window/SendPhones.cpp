#include "delivery/window/SendPhones.h"

#include "delivery/PhoneAddress.h"
#include "platform/UITableViewSubtitleCell.h"
#include "platform/foundation/NSFileManager.h"
#include "views/SectionHeader.h"

#include <algorithm>

SendPhones::SendPhones(const QString &documents) : _documents(documents)
{
    _phones = _remembered.all();
}

void SendPhones::setTable(UITableView &table, QQmlEngine &engine)
{
    _table = &table;
    _engine = &engine;
    table.setDelegate(this);
    table.setDataSource(this);
}

const RememberedPhone *SendPhones::chosen() const
{
    return isEmpty() ? nullptr : &_phones[std::size_t(_chosen)];
}

void SendPhones::choose(int row)
{
    _chosen = row;
    if (_table)
        _table->reloadData();
}

void SendPhones::load()
{
    _phones = _remembered.all();
    choose(0);
}

QString SendPhones::remember(const RememberedPhone &phone)
{
    if (const auto error = _remembered.remember(phone))
        return tr("The phone cannot be remembered: %1.")
            .arg(NSFileManager::withReason(_documents, error));
    load();
    return {};
}

QString SendPhones::save(const RememberedPhone &phone, const QString &oldName)
{
    const bool isTaken = std::ranges::any_of(
        _phones, [&](const RememberedPhone &other) { return other.name == phone.name; });
    if (isTaken && phone.name != oldName)
        return tr("There is a phone \"%1\" already.").arg(phone.name);
    const QString problem = remember(phone);
    if (!problem.isEmpty() || oldName.isEmpty() || oldName == phone.name)
        return problem;
    // That it stands twice in the list, should this fail, can be seen there.
    const auto error = _remembered.forget(oldName);
    load();
    return error ? NSFileManager::withReason(_documents, error) : QString();
}

QString SendPhones::noteUsed()
{
    const RememberedPhone phone = *chosen();
    return remember(phone);
}

QString SendPhones::removeChosen()
{
    const RememberedPhone phone = *chosen();
    if (const auto error = _remembered.forget(phone.name))
        return tr("The phone cannot be removed: %1.")
            .arg(NSFileManager::withReason(_documents, error));
    _removed = phone;
    load();
    return {};
}

QString SendPhones::undoRemove()
{
    const RememberedPhone phone = *_removed;
    const QString problem = save(phone, {});
    if (problem.isEmpty())
        _removed.reset();
    return problem;
}

UITableViewCell *SendPhones::cellForRowAtIndexPath(UITableView &table, NSIndexPath indexPath)
{
    const QString identifier = QStringLiteral("Phone");
    auto *cell = qobject_cast<UITableViewSubtitleCell *>(
        table.dequeueReusableCellWithIdentifier(identifier));
    if (!cell) {
        cell = UITableViewSubtitleCell::initWithReuseIdentifier(identifier, *_engine);
        cell->setBackgroundColor(Qt::white);
    }
    const RememberedPhone &phone = _phones[std::size_t(indexPath.row)];
    cell->textLabel()->setText(phone.name);
    cell->detailTextLabel()->setText(
        tr("%1, in %2").arg(PhoneAddress::text(phone.address), phone.folder));
    using enum UITableViewCell::AccessoryType;
    cell->setAccessoryType(indexPath.row == _chosen ? Checkmark : None);
    return cell;
}

void SendPhones::willDisplayHeaderView(UITableViewHeader &header, int)
{
    paintSectionHeader(header);
}

void SendPhones::didSelectRowAtIndexPath(NSIndexPath indexPath)
{
    _table->deselectRow(indexPath, true);
    choose(indexPath.row);
}

bool SendPhones::showMenuForRowAtIndexPath(NSIndexPath indexPath)
{
    choose(indexPath.row);
    emit menuWanted();
    return true;
}
