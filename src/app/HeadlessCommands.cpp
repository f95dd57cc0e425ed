#include "app/HeadlessCommands.h"

#include "app/ElementEdits.h"
#include "app/ExitStatus.h"
#include "app/OpenKeeper.h"
#include "app/StandardStreams.h"
#include "app/WriteChoices.h"
#include "library/EditedTheme.h"
#include "platform/foundation/NSFileManager.h"
#include "platform/foundation/NSLog.h"
#include "theme/ThemePackageWriter.h"

#include <QDateTime>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cmath>

using namespace Qt::StringLiterals;

namespace
{
QJsonValue jsonFromMap(const QVariantMap &map);

/// Values that JSON has no form for are given as text.
QJsonValue jsonFromValue(const QVariant &value)
{
    switch (value.typeId()) {
    case QMetaType::UnknownType:
        return QJsonValue::Null;
    case QMetaType::Bool:
        return value.toBool();
    case QMetaType::LongLong:
        return value.toLongLong();
    case QMetaType::Double:
        if (std::isfinite(value.toDouble()))
            return value.toDouble();
        return PropertyList::textOf(value);
    case QMetaType::QVariantList: {
        QJsonArray array;
        for (const QVariant &item : value.toList())
            array.append(jsonFromValue(item));
        return array;
    }
    case QMetaType::QVariantMap:
        return jsonFromMap(value.toMap());
    default:
        return PropertyList::textOf(value);
    }
}

QJsonValue jsonFromMap(const QVariantMap &map)
{
    QJsonObject object;
    for (auto item = map.begin(); item != map.end(); ++item)
        object.insert(item.key(), jsonFromValue(item.value()));
    return object;
}

/// Not the bytes of a picture: whoever reads this wants to know whether there is one.
QVariant describedValue(const ElementRecord &record)
{
    QVariantMap value = record.value.toMap();
    return value.remove(u"jpeg"_s) > 0 ? QVariant(value) : record.value;
}

QJsonObject jsonFromRecord(const QString &section, const ElementRecord &record)
{
    return {
        {"section"_L1, section},
        {"name"_L1, record.name},
        {"description"_L1, record.description},
        {"key"_L1, record.key},
        {"kind"_L1, record.isChoice() ? u"choice"_s : u"color"_s},
        {"color"_L1, jsonFromValue(record.color)},
        {"value"_L1, jsonFromValue(describedValue(record))},
        {"options"_L1, record.options ? jsonFromMap(*record.options) : QJsonValue::Null},
    };
}

/// Calls `take(title, record)` for each row of the table, `title` being the section's.
template <typename Take>
void forEachRow(const ElementDataSource &source, Take take)
{
    for (int section = 0; section < source.numberOfSections(); ++section) {
        for (int row = 0; row < source.numberOfRowsInSection(section); ++row)
            take(source.titleForSection(section), source.record(section, row));
    }
}

QByteArray readableList(const ElementDataSource &source)
{
    qsizetype nameWidth = 0;
    qsizetype keyWidth = 0;
    forEachRow(source, [&](const QString &, const ElementRecord &record) {
        nameWidth = std::max(nameWidth, record.name.size());
        keyWidth = std::max(keyWidth, record.key.size());
    });
    QString text;
    for (int section = 0; section < source.numberOfSections(); ++section) {
        text += (section == 0 ? ""_L1 : "\n"_L1) + source.titleForSection(section) + u'\n';
        for (int row = 0; row < source.numberOfRowsInSection(section); ++row) {
            const ElementRecord &record = source.record(section, row);
            const QString shown = record.shownColor().value_or(record.shownOption());
            text += u"  %1  %2  %3\n"_s.arg(record.name.leftJustified(nameWidth),
                                            record.key.leftJustified(keyWidth),
                                            shown.isEmpty() ? u"-"_s : shown);
        }
    }
    return text.toUtf8();
}
} // namespace

QByteArray jsonList(const ElementDataSource &source)
{
    QJsonArray array;
    forEachRow(source, [&](const QString &section, const ElementRecord &record) {
        array.append(jsonFromRecord(section, record));
    });
    return QJsonDocument(array).toJson();
}

int runList(const CommandLine::Options &options)
{
    auto keeper = openKeeper(options);
    if (!keeper)
        return ExitStatus::failed;
    const auto source = ElementDataSource::load(options.resources, options.documents);
    keeper.reset(); // whoever reads our output slowly keeps nobody waiting
    if (source.status() == ElementDataSource::Status::Unusable)
        return ExitStatus::failed; // the log has named the reason
    if (source.status() == ElementDataSource::Status::Malformed)
        complain(u"warning: malformed data source, nothing to list: %1"_s.arg(source.problem()));
    return print(options.json ? jsonList(source) : readableList(source));
}

namespace
{
/// The choices with the edits; or, told why, the exit status.
struct Edited {
    std::shared_ptr<WorkingCopyKeeper> keeper; // held from the load on, see below
    std::optional<ElementDataSource> elements;
    int status = ExitStatus::failed;
};

Edited edited(const CommandLine::Options &options)
{
    // What another Tintloom saves between load and save would be undone by this save.
    Edited result{openKeeper(options), {}, ExitStatus::failed};
    if (!result.keeper)
        return result;
    ThemeDocument document(ElementDataSource::load(options.resources, options.documents));
    const ElementDataSource &source = document.elements();
    if (source.status() == ElementDataSource::Status::Unusable)
        return result; // the log has named the reason
    if (source.status() == ElementDataSource::Status::Malformed) {
        // An empty theme would wipe the user's choices.
        complain(u"malformed data source, nothing saved: %1"_s.arg(source.problem()));
    } else if (const auto problem = applyEdits(document, options.edits)) {
        complain(*problem + "; nothing saved"_L1);
        result.status = ExitStatus::wrongUsage;
    } else if (const auto fault = applyPictures(document, options.pictures)) {
        complain(fault->text + "; nothing saved"_L1);
        result.status = fault->isUsage ? ExitStatus::wrongUsage : ExitStatus::failed;
    } else {
        result.elements = source;
    }
    return result;
}
} // namespace

int runSet(const CommandLine::Options &options)
{
    const auto [keeper, elements, status] = edited(options);
    if (!elements)
        return status;
    if (!writeChoices(options, *keeper, *elements))
        return ExitStatus::failed;
    return print(locationsOf(options).workingCopy().toUtf8() + '\n');
}

int runSave(const CommandLine::Options &options)
{
    auto [keeper, elements, status] = edited(options);
    if (!elements)
        return status;
    NSLog(u"SAVING THEME..."_s);
    const SaveReport report =
        writeTheme(buildTheme(*elements, locationsOf(options), options.scale, std::move(keeper)));
    if (!report.refusal.isEmpty()) {
        complain(report.refusal + "; nothing saved"_L1);
        return ExitStatus::failed;
    }
    for (const auto &failure : report.failures)
        complain(u"cannot write %1: %2"_s.arg(failure.path, failure.reason));
    QString written;
    for (const QString &path : report.written)
        written += path + u'\n';
    const int printed = print(written.toUtf8());
    return report.failures.empty() ? printed : ExitStatus::failed;
}

int runRestore(const CommandLine::Options &options)
{
    const auto keeper = openKeeper(options);
    if (!keeper)
        return ExitStatus::failed;
    const auto [outcome, problem] = keeper->restore();
    if (outcome != WorkingCopyKeeper::Restored::Done) {
        complain(problem);
        return ExitStatus::failed;
    }
    // Nobody has noted what those were made from.
    const QString preferences = locationsOf(options).preferences();
    if (const auto error = EditedTheme(preferences).set(std::nullopt))
        complain(u"cannot write %1"_s.arg(NSFileManager::withReason(preferences, error)));
    return print(u"The earlier choices are back in %1\n"
                 "\"tintloom save\" puts them into the theme; a second \"tintloom restore\" undoes "
                 "this.\n"_s.arg(locationsOf(options).workingCopy())
                     .toUtf8());
}
