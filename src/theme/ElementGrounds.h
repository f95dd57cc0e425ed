// Which element stands on which: the data source's optional eighth key, "on".
//
//   "on": { "text": ["navigation-bar-color"], "behind": [...] }
//
// It is there for advice alone. What is wrong in it is logged and left out.
#pragma once

#include <QString>

#include <map>
#include <utility>
#include <vector>

class QJsonValue;
struct ElementRecord;

/// What an element stands on: another colour element, and how well it is to be seen there.
struct ElementGround {
    enum class Kind { // the strictest first
        Text,
        Large, // text from 18 points, or from 14 in bold
        Mark,  // what is no text, but has to be seen
        Behind // lies there where the element is not opaque; need not be told from it
    };
    int index; // in document order; never the element's own
    Kind kind;
    bool operator==(const ElementGround &) const = default;
};

/// As the document has them, by keys.
using ElementGroundNames = std::vector<std::pair<QString, ElementGround::Kind>>;

/// What stands under "on" of the element with that key.
ElementGroundNames groundNamesFromJson(const QJsonValue &on, const QString &element);

/// Gives the records their grounds, each once, by the strictest kind that names it; `names` are by
/// the records' indexes. Of several elements with one key only the one that a theme shows stands on
/// something, and is stood on: the last, or the last whose colour is not null.
void findGrounds(std::vector<ElementRecord> &records,
                 const std::map<int, ElementGroundNames> &names);
