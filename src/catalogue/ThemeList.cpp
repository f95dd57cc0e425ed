#include "catalogue/ThemeList.h"

#include "platform/foundation/NSFileManager.h"
#include "platform/foundation/NSLog.h"
#include "platform/foundation/PropertyList.h"

#include <QCollator>
#include <QHash>

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
                             stringUnder(map, u"active"_s) == "Yes"_L1};
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

ThemeList ThemeList::load(const QString &resources)
{
    const QString path = resources + "/themes.plist"_L1;
    const auto [bytes, error] = NSFileManager::contentsAtPath(path);
    if (!error)
        return parse(bytes, path);
    ThemeList list;
    list._problem = NSFileManager::withReason(path, error);
    return list;
}

ThemeList ThemeList::parse(const QByteArray &bytes, const QString &path)
{
    ThemeList list;
    const auto items = PropertyList::readArray(bytes);
    if (!items) {
        list._problem = path + ": it is not a property list with an array on top"_L1;
        return list;
    }
    QHash<QString, size_t> places;
    for (qsizetype index = 0; index < items->size(); ++index) {
        const auto record = themeRecord(items->at(index));
        if (!record) {
            NSLog(u"Theme %@ of %@ has no section or no name"_s, {QString::number(index), path});
            continue;
        }
        if (!places.contains(record->section)) {
            places.insert(record->section, list._sections.size());
            list._sections.push_back({record->section, {}});
        }
        list._sections[places[record->section]].records.push_back(*record);
    }
    QCollator collator; // the user's locale; plain case folding where there is none
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    std::ranges::sort(list._sections, [&](const Section &left, const Section &right) {
        const int order = collator.compare(left.title, right.title);
        return order != 0 ? order < 0 : left.title < right.title;
    });
    return list;
}

const ThemeList::Section &ThemeList::sectionAt(int section) const
{
    Q_ASSERT(section >= 0 && section < numberOfSections());
    return _sections[size_t(section)];
}

const ThemeRecord &ThemeList::record(int section, int row) const
{
    Q_ASSERT(row >= 0 && row < numberOfRowsInSection(section));
    return sectionAt(section).records[size_t(row)];
}

const ThemeRecord *ThemeList::find(const QString &name) const
{
    for (const Section &section : _sections)
        for (const ThemeRecord &record : section.records)
            if (record.name == name)
                return &record;
    return nullptr;
}

QStringList ThemeList::installableNames() const
{
    QStringList names;
    for (const Section &section : _sections)
        for (const ThemeRecord &record : section.records)
            if (record.active && !record.isCustom() && !record.isOwnTheme())
                names.append(record.name);
    return names;
}

std::optional<QString> themeResourceFolder(const QString &resources, const QString &name)
{
    if (name.isEmpty() || name == "."_L1 || name == ".."_L1 || name.contains(u'/') ||
        name.contains(QChar(u'\0'))) {
        NSLog(u"No theme folder can have the name \"%@\""_s, {name});
        return std::nullopt;
    }
    return resources + u'/' + name;
}
