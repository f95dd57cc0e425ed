#include "catalogue/ThemeList.h"

#include "platform/foundation/NSFileManager.h"
#include "platform/foundation/NSLog.h"
#include "platform/foundation/PropertyList.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{
/// Null unless the value is a string.
QString stringUnder(const QVariantMap &record, const QString &key)
{
    const QVariant value = record.value(key);
    return value.typeId() == QMetaType::QString ? value.toString() : QString();
}

std::optional<ThemeRecord> themeRecord(const QVariant &item)
{
    const QVariantMap map = item.toMap(); // empty for what is no dictionary
    const ThemeRecord record{stringUnder(map, u"section"_s), stringUnder(map, u"name"_s),
                             stringUnder(map, u"details"_s),
                             stringUnder(map, u"active"_s) == "Yes"_L1, false};
    if (record.section.isNull() || record.name.isNull())
        return std::nullopt;
    return record;
}
} // namespace

QString ThemeRecord::subtitle() const
{
    if (isOwnTheme())
        return {};
    return active ? details : u"Coming soon!"_s;
}

ThemeList ThemeList::load(const QString &resources, const std::vector<KeptTheme> &kept)
{
    const QString path = resources + "/themes.plist"_L1;
    const auto [bytes, error] = NSFileManager::contentsAtPath(path);
    if (!error)
        return parse(bytes, path, kept);
    ThemeList list;
    list._problem = NSFileManager::withReason(path, error);
    return list;
}

ThemeList ThemeList::parse(const QByteArray &bytes, const QString &path,
                           const std::vector<KeptTheme> &kept)
{
    ThemeList list;
    const auto items = PropertyList::readArray(bytes);
    if (!items) {
        list._problem = path + ": it is not a property list with an array on top"_L1;
        return list;
    }
    for (qsizetype index = 0; index < items->size(); ++index) {
        const auto record = themeRecord(items->at(index));
        if (!record) {
            NSLog(u"Theme %@ of %@ has no section or no name"_s, {QString::number(index), path});
            continue;
        }
        list._records.push_back(*record);
    }
    list.arrange();
    list.setKept(kept);
    return list;
}

bool ThemeList::setKept(const std::vector<KeptTheme> &kept)
{
    std::vector<ThemeRecord> records = _records;
    std::erase_if(records, [](const ThemeRecord &record) { return record.kept; });
    for (const KeptTheme &theme : kept)
        records.push_back({ThemeRecord::keptSection(), theme.name, {}, true, true, theme.folder});
    if (records == _records)
        return false;
    _records = std::move(records);
    arrange();
    return true;
}

void ThemeList::arrange()
{
    _sections = {};
    for (size_t index = 0; index < _records.size(); ++index)
        _sections.append(_records[index].section, int(index));
    _sections.sort();
}

const ThemeRecord &ThemeList::record(int section, int row) const
{
    Q_ASSERT(row >= 0 && row < numberOfRowsInSection(section));
    return _records[size_t(_sections.elements(section)[size_t(row)])];
}

std::vector<const ThemeRecord *> ThemeList::rows() const
{
    std::vector<const ThemeRecord *> rows;
    for (int section = 0; section < numberOfSections(); ++section)
        for (int row = 0; row < numberOfRowsInSection(section); ++row)
            rows.push_back(&record(section, row));
    return rows;
}

const ThemeRecord *ThemeList::find(const QString &name) const
{
    const auto all = rows();
    const auto found = std::ranges::find(all, name, &ThemeRecord::name);
    return found == all.end() ? nullptr : *found;
}

QStringList ThemeList::installableNames() const
{
    QStringList names;
    for (const ThemeRecord *record : rows())
        if (record->active && record->isReadyMade())
            names.append(record->name);
    return names;
}

bool isThemeFolderName(const QString &name)
{
    return !name.isEmpty() && name != "."_L1 && name != ".."_L1 && !name.contains(u'/') &&
           !name.contains(QChar(u'\0'));
}

std::optional<QString> themeResourceFolder(const QString &resources, const QString &name)
{
    if (!isThemeFolderName(name)) {
        NSLog(u"No theme folder can have the name \"%@\""_s, {name});
        return std::nullopt;
    }
    return resources + u'/' + name;
}
