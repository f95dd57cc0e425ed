#include "theme/ElementDataSource.h"

#include "platform/foundation/NSFileManager.h"
#include "platform/foundation/NSLog.h"
#include "platform/foundation/XmlText.h"
#include "theme/PictureEntry.h"
#include "theme/ThemeLocations.h"

#include <QHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{
QVariant valueFromJson(const QJsonValue &json);

QVariantMap mapFromJson(const QJsonObject &object)
{
    QVariantMap map;
    for (auto item = object.begin(); item != object.end(); ++item)
        map.insert(xmlText(item.key()), valueFromJson(item.value()));
    return map;
}

/// Values come as they can be saved, without nulls in lists and with text that XML can carry, so
/// that what a save writes is found again at the next start.
QVariant valueFromJson(const QJsonValue &json)
{
    if (json.isArray()) {
        QVariantList list;
        for (const QJsonValue item : json.toArray()) {
            if (!item.isNull())
                list.append(valueFromJson(item));
        }
        return list;
    }
    if (json.isObject()) {
        QVariantMap map = mapFromJson(json.toObject());
        map.removeIf([](auto item) { return !item.value().isValid(); });
        return map;
    }
    if (json.isString())
        return xmlText(json.toString());
    return json.isNull() ? QVariant() : json.toVariant(); // whole numbers come as qint64
}

QString textFromJson(const QJsonValue &json)
{
    return PropertyList::textOf(valueFromJson(json));
}

/// Nothing when the item lacks a key, whose name then stands in `missing`.
std::optional<ElementRecord> recordFromJson(const QJsonObject &item, QLatin1StringView &missing)
{
    const auto take = [&](QLatin1StringView key) {
        QJsonValue value = item.value(key);
        if (value.isUndefined() && missing.isEmpty())
            missing = key;
        return value;
    };
    ElementRecord record;
    record.key = textFromJson(take("key"_L1));
    record.name = textFromJson(take("name"_L1));
    record.description = textFromJson(take("description"_L1));
    record.color = valueFromJson(take("color"_L1));
    if (const QJsonValue options = take("options"_L1); !options.isNull())
        record.options = mapFromJson(options.toObject()); // a label may stand for null
    record.value = valueFromJson(take("value"_L1));
    if (const QJsonValue section = take("section"_L1); !section.isNull())
        record.section = textFromJson(section);
    return missing.isEmpty() ? std::optional(std::move(record)) : std::nullopt;
}

/// The dictionary of the last save, if there is a readable one.
std::optional<PropertyDictionary> savedDictionary(const QString &path)
{
    NSLog(u"path: %@"_s, {path});
    const auto [bytes, error] = NSFileManager::contentsAtPath(path);
    if (NSFileManager::isMissing(error))
        return std::nullopt;
    auto dictionary = error ? std::nullopt : PropertyList::readDictionary(bytes);
    if (!dictionary)
        NSLog(u"Saved choices cannot be read: %@"_s,
              {error ? QString::fromStdString(error.message()) : u"no property list"_s});
    return dictionary;
}

/// Null when nothing was saved under the key, or only a trace of nothing.
QVariant savedValue(const PropertyDictionary &saved, const QString &key)
{
    const QVariant *value = saved.find(key);
    if (!value)
        return {};
    switch (value->typeId()) {
    case QMetaType::QString: {
        const QString text = value->toString();
        return text == "(null)"_L1 || text == "null"_L1 ? QVariant() : *value;
    }
    case QMetaType::QVariantList:
    case QMetaType::QVariantMap:
    case QMetaType::QByteArray:
    case QMetaType::QDateTime:
        NSLog(u"Saved value of %@ is neither text nor number nor boolean: %@"_s,
              {key, PropertyList::textOf(*value)});
        return *value;
    default:
        return *value;
    }
}

/// The record's "value" still is the document's own here. A choice that the document leaves
/// open thus receives a saved choice as its colour, as on the phone.
void overlay(ElementRecord &record, const PropertyDictionary &saved)
{
    const QVariant value = savedValue(saved, record.key);
    if (value.isValid())
        (record.value.isValid() ? record.value : record.color) = value;
}

PropertyDictionary fixedHead()
{
    PropertyDictionary head;
    head.setValue(u"name"_s, u"Tintloom"_s);
    head.setValue(u"theme-version"_s, u"2"_s);
    head.setValue(u"description"_s, u""_s);
    head.setValue(u"retina"_s, false);
    return head;
}
} // namespace

bool ElementChoice::operator==(const ElementChoice &other) const
{
    const auto same = [](const QVariant &one, const QVariant &another) {
        return one.typeId() == another.typeId() && one == another;
    };
    return same(color, other.color) && same(value, other.value);
}

std::optional<QString> ElementRecord::shownColor() const
{
    const QString text = PropertyList::textOf(color);
    return text.isEmpty() ? std::nullopt : std::optional(text);
}

QString ElementRecord::shownOption() const
{
    if (!value.isValid() || !options)
        return {};
    for (auto option = options->begin(); option != options->end(); ++option) {
        if (PropertyList::isEqual(option.value(), value))
            return option.key();
    }
    return {};
}

ElementDataSource ElementDataSource::load(const QString &resources, const QString &documents)
{
    const ThemeLocations locations{{}, documents};
    auto saved = savedDictionary(locations.workingCopy());
    if (saved)
        PictureEntry::readFile(*saved, PictureEntry::filesIn(locations.workingCopyFolder()));
    return loadWith(resources, saved ? &*saved : nullptr);
}

ElementDataSource ElementDataSource::loadWith(const QString &resources,
                                              const PropertyDictionary *saved)
{
    const QString path = resources + "/initialDatasource.txt"_L1;
    const auto [text, error] = NSFileManager::contentsAtPath(path);
    if (!error)
        return parse(text, path, saved);
    ElementDataSource source;
    source.fail(Status::Unusable, path, QString::fromStdString(error.message()));
    return source;
}

ElementDataSource ElementDataSource::parse(const QByteArray &text, const QString &path,
                                           const PropertyDictionary *saved)
{
    ElementDataSource source;
    source.readDocument(text, path, saved);
    if (saved && source._status == Status::Loaded)
        source.keepForeignEntries(*saved);
    source.groupIntoSections();
    return source;
}

ElementDataSource::ElementDataSource()
    : _predefinedDict(fixedHead()),
      _arrayObjects{u"green-balloon-colors_1"_s, u"green-balloon-colors_2"_s,
                    u"blue-balloon-colors_1"_s,  u"blue-balloon-colors_2"_s,
                    u"gray-balloon-colors_1"_s,  u"gray-balloon-colors_2"_s},
      _imageObjects{u"list-background-image"_s}
{
}

void ElementDataSource::readDocument(const QByteArray &text, const QString &path,
                                     const PropertyDictionary *saved)
{
    if (!text.isValidUtf8())
        return fail(Status::Unusable, path, u"it is not UTF-8 text"_s);
    QJsonParseError parseError;
    const QJsonDocument document = QJsonDocument::fromJson(text, &parseError);
    if (parseError.error != QJsonParseError::NoError)
        return fail(Status::Malformed, path,
                    u"%1 at byte %2"_s.arg(parseError.errorString()).arg(parseError.offset));
    if (!document.isArray())
        return fail(Status::Malformed, path, u"the top level is not an array"_s);

    const QJsonArray items = document.array();
    _tableSource.reserve(size_t(items.size()));
    std::map<int, ElementGroundNames> grounds;
    for (qsizetype index = 0; index < items.size(); ++index) {
        const QJsonValue item = items.at(index);
        if (!item.isObject())
            return fail(Status::Unusable, path, u"item %1 is not an object"_s.arg(index));
        QLatin1StringView missing;
        auto record = recordFromJson(item.toObject(), missing);
        if (!record)
            return fail(Status::Unusable, path, u"item %1 has no \"%2\""_s.arg(index).arg(missing));
        if (const QJsonValue on = item.toObject().value("on"_L1); !on.isUndefined() && !on.isNull())
            grounds[int(index)] = groundNamesFromJson(on, record->key);
        if (saved) {
            const ElementChoice own = record->choice();
            overlay(*record, *saved);
            if (const auto picture = PictureEntry::valueIn(*saved, *record))
                record->value = *picture;
            if (!(record->choice() == own))
                _overlaid.insert(int(index), own);
        }
        _tableSource.push_back(std::move(*record));
    }
    findGrounds(_tableSource, grounds);
}

void ElementDataSource::keepForeignEntries(const PropertyDictionary &saved)
{
    QSet<QString> own;
    own.reserve(qsizetype(_tableSource.size()));
    for (const ElementRecord &record : _tableSource)
        own.insert(record.key);
    for (const QString &key : std::as_const(_arrayObjects))
        own.insert(key.chopped(2)); // the pair's array
    own.insert(PictureEntry::key());
    for (const auto &[key, value] : saved.entries())
        if (!own.contains(key) && !_predefinedDict.find(key))
            _foreignEntries.setValue(key, value);
}

void ElementDataSource::fail(Status status, const QString &path, const QString &reason)
{
    _status = status;
    _problem = path + ": "_L1 + reason;
    _tableSource.clear();
    _overlaid.clear();
    if (status == Status::Unusable)
        NSLog(u"Unusable data source %@"_s, {_problem});
}

void ElementDataSource::groupIntoSections()
{
    for (size_t element = 0; element < _tableSource.size(); ++element) {
        const ElementRecord &record = _tableSource[element];
        if (record.section) {
            _newTableSource.append(*record.section, int(element));
            continue;
        }
        // It opens a section that stays empty, as on the phone: the fault shows.
        NSLog(u"MISSING SECTION: %@"_s, {record.name});
        _newTableSource.open(u"MISSING SECTION"_s);
    }
    _newTableSource.sort();
    _indexPaths.assign(_tableSource.size(), {});
    for (int section = 0; section < numberOfSections(); ++section)
        for (int row = 0; row < numberOfRowsInSection(section); ++row)
            _indexPaths[size_t(_newTableSource.elements(section)[size_t(row)])] = {section, row};
}

QStringList ElementDataSource::sortedSections() const
{
    QStringList titles;
    titles.reserve(numberOfSections());
    for (int section = 0; section < numberOfSections(); ++section)
        titles.append(titleForSection(section));
    return titles;
}

const ElementRecord &ElementDataSource::record(int section, int row) const
{
    Q_ASSERT(row >= 0 && row < numberOfRowsInSection(section));
    return _tableSource[size_t(_newTableSource.elements(section)[size_t(row)])];
}

NSIndexPath ElementDataSource::indexPathOf(int index) const
{
    return _indexPaths.at(size_t(index));
}

std::optional<int> ElementDataSource::indexOfName(const QString &name) const
{
    const auto found = std::ranges::find(_tableSource, name, &ElementRecord::name);
    if (found == _tableSource.end())
        return std::nullopt;
    return int(found - _tableSource.begin());
}

std::vector<int> ElementDataSource::indexesOfKey(const QString &key) const
{
    std::vector<int> indexes;
    for (size_t index = 0; index < _tableSource.size(); ++index)
        if (_tableSource[index].key == key)
            indexes.push_back(int(index));
    return indexes;
}

std::optional<int> ElementDataSource::shownIndexOfKey(const QString &key) const
{
    const auto hasKey = [&key](const ElementRecord &record) { return record.key == key; };
    const auto isSaved = [&](const ElementRecord &record) {
        return hasKey(record) && (record.isChoice() || record.color.isValid());
    };
    const auto last = std::find_if(_tableSource.rbegin(), _tableSource.rend(), isSaved);
    if (last != _tableSource.rend())
        return int(std::prev(last.base()) - _tableSource.begin());
    const auto first = std::ranges::find_if(_tableSource, hasKey);
    return first == _tableSource.end() ? std::nullopt
                                       : std::optional(int(first - _tableSource.begin()));
}

ElementChoice ElementDataSource::defaultChoice(int index) const
{
    return _overlaid.value(index, _tableSource.at(size_t(index)).choice());
}

void ElementDataSource::setChoice(int index, const ElementChoice &choice)
{
    ElementRecord &record = _tableSource.at(size_t(index));
    const auto own = _overlaid.constFind(index);
    if (own == _overlaid.cend())
        _overlaid.insert(index, record.choice());
    else if (choice == *own)
        _overlaid.erase(own);
    record.color = choice.color;
    record.value = choice.value;
}
