#include "app/ElementEdits.h"

#include "app/NearestNames.h"
#include "theme/ColorText.h"
#include "theme/ElementPicture.h"
#include "theme/ThemePictures.h"

using namespace Qt::StringLiterals;

namespace
{
QStringList similarKeys(const ElementDataSource &source, const QString &key)
{
    QStringList keys;
    for (const auto &record : source.tableSource())
        keys.append(record.key);
    return nearestNames(key, keys);
}

/// What the value makes of an element, or why it cannot.
struct Outcome {
    std::optional<ElementChoice> choice;
    QString problem;
};

Outcome withColor(const ElementRecord &record, const QString &value)
{
    const auto color = value.isEmpty() ? QString("") : normalizedColorText(value);
    if (color)
        return {ElementChoice{*color, record.value}, {}};
    return {
        {},
        u"'%1' is no colour for '%2'; give 3, 6 or 8 hexadecimal digits, or nothing to remove the colour"_s
            .arg(value, record.key)};
}

Outcome withOption(const ElementRecord &record, const QString &label)
{
    const auto option = record.options->constFind(label);
    if (option != record.options->cend())
        return {ElementChoice{record.color, *option}, {}};
    return {{},
            u"'%1' is no option of '%2'; its options are: %3"_s.arg(
                label, record.key, record.options->keys().join(", "_L1))};
}
} // namespace

QString unknownKey(const ElementDataSource &source, const QString &key)
{
    const QStringList similar = similarKeys(source, key);
    return u"there is no element with the key '%1'; %2"_s.arg(
        key, similar.isEmpty() ? u"'tintloom list' shows the keys"_s
                               : u"near it: "_s + similar.join(", "_L1));
}

std::optional<QString> applyEdits(ThemeDocument &document, const QStringList &edits)
{
    ThemeDocument::Changes changes;
    for (const QString &edit : edits) {
        const QString key = edit.section(u'=', 0, 0);
        const QString value = edit.section(u'=', 1);
        const std::vector<int> indexes = document.elements().indexesOfKey(key);
        if (indexes.empty())
            return unknownKey(document.elements(), key);
        for (const int index : indexes) {
            const ElementRecord &record = document.record(index);
            Outcome outcome =
                record.isChoice() ? withOption(record, value) : withColor(record, value);
            if (!outcome.choice)
                return outcome.problem;
            changes.push_back({index, std::move(*outcome.choice)});
        }
    }
    document.changeAll(std::move(changes), u"--set"_s);
    return std::nullopt;
}

std::optional<PictureProblem> applyPictures(ThemeDocument &document, const QStringList &edits)
{
    ThemeDocument::Changes changes;
    for (const QString &edit : edits) {
        const QString key = edit.section(u'=', 0, 0);
        const QString taking = ThemePictures::listBackgroundKey(document.elements());
        const auto index = document.elements().shownIndexOfKey(key);
        if (!index)
            return PictureProblem{unknownKey(document.elements(), key), true};
        if (key != taking || document.record(*index).isChoice())
            return PictureProblem{u"'%1' takes no picture; only '%2' does"_s.arg(key, taking),
                                  true};
        const auto [picture, problem] = ElementPicture::read(edit.section(u'=', 1));
        const auto choice = picture ? picture->choice() : std::nullopt;
        if (!choice)
            return PictureProblem{u"cannot read "_s + problem, false};
        changes.push_back({*index, *choice});
    }
    document.changeAll(std::move(changes), u"--picture"_s);
    return std::nullopt;
}
