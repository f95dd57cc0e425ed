#include "theme/ElementGrounds.h"

#include "platform/foundation/NSLog.h"
#include "platform/foundation/XmlText.h"
#include "theme/ElementDataSource.h"

#include <QHash>
#include <QJsonArray>
#include <QJsonObject>

#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;

namespace
{
std::optional<ElementGround::Kind> kindOf(const QString &name)
{
    using enum ElementGround::Kind;
    return name == "text"_L1     ? std::optional(Text)
           : name == "large"_L1  ? std::optional(Large)
           : name == "mark"_L1   ? std::optional(Mark)
           : name == "behind"_L1 ? std::optional(Behind)
                                 : std::nullopt;
}

/// By key, the elements that a theme shows.
QHash<QString, int> shownElements(const std::vector<ElementRecord> &records)
{
    QHash<QString, int> shown;
    shown.reserve(qsizetype(records.size()));
    for (size_t index = 0; index < records.size(); ++index) {
        const ElementRecord &record = records[index];
        if (record.isChoice() || record.color.isValid() || !shown.contains(record.key))
            shown[record.key] = int(index);
    }
    return shown;
}
} // namespace

ElementGroundNames groundNamesFromJson(const QJsonValue &on, const QString &element)
{
    if (!on.isObject())
        NSLog(u"\"on\" of %@ is not an object"_s, {element});
    ElementGroundNames names;
    const QJsonObject lists = on.toObject();
    for (auto list = lists.begin(); list != lists.end(); ++list) {
        const auto kind = kindOf(list.key());
        if (!kind || !list.value().isArray()) {
            NSLog(u"\"on\" of %@ has \"%@\", which is no list of grounds"_s,
                  {element, xmlText(list.key())});
            continue;
        }
        for (const QJsonValue key : list.value().toArray())
            names.emplace_back(xmlText(key.toString()), *kind);
    }
    return names;
}

void findGrounds(std::vector<ElementRecord> &records,
                 const std::map<int, ElementGroundNames> &names)
{
    if (names.empty())
        return;
    const QHash<QString, int> shown = shownElements(records);
    for (const auto &[index, grounds] : names) {
        ElementRecord &record = records[size_t(index)];
        if (shown.value(record.key, -1) != index)
            continue;
        QHash<int, size_t> places; // in the record's list, by ground
        for (const auto &[key, kind] : grounds) {
            const int ground = shown.value(key, -1);
            const bool isColor = ground >= 0 && !records[size_t(ground)].isChoice();
            if (!isColor || ground == index || record.isChoice()) {
                NSLog(u"%@ cannot stand on \"%@\": it takes two colors"_s, {record.key, key});
                continue;
            }
            const auto place = places.constFind(ground);
            if (place == places.cend()) {
                places.insert(ground, record.on.size());
                record.on.push_back({ground, kind});
            } else {
                ElementGround::Kind &known = record.on[*place].kind;
                known = std::min(known, kind);
            }
        }
    }
}
