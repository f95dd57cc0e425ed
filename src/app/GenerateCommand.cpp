#include "app/GenerateCommand.h"

#include "advice/ThemeGenerator.h"
#include "app/ElementEdits.h"
#include "app/ExitStatus.h"
#include "app/HeadlessCommands.h"
#include "app/OpenKeeper.h"
#include "app/PaletteOfPicture.h"
#include "app/StandardStreams.h"
#include "app/ThemeSubject.h"
#include "app/WriteChoices.h"
#include "theme/ElementLocks.h"

using namespace Qt::StringLiterals;

namespace
{
constexpr int done = 0;

int lockElements(ThemeDocument &document, const CommandLine::Options &options)
{
    for (const int index : ElementLocks::load(locationsOf(options), document.elements()))
        document.setLocked(index, true);
    for (const QString &key : options.generate.locked) {
        const std::vector<int> indexes = document.elements().indexesOfKey(key);
        if (indexes.empty()) {
            complain(unknownKey(document.elements(), key));
            return ExitStatus::wrongUsage;
        }
        for (const int index : indexes)
            document.setLocked(index, true);
    }
    return done;
}

/// Takes the colours of the theme that is asked for as a base, if any.
int takeBase(ThemeDocument &document, const CommandLine::Options &options)
{
    if (options.theme.isEmpty())
        return done;
    const auto [base, status] = themeSubject(options);
    if (!base)
        return status;
    ThemeDocument::Changes changes;
    for (int index = 0; index < document.count(); ++index)
        if (const ElementRecord &record = base->tableSource()[size_t(index)]; !record.isChoice())
            changes.push_back({index, record.choice()});
    document.changeUnlocked(std::move(changes), u"Base"_s);
    return done;
}

struct Lead {
    QRgb color;
    Harmony harmony;
    Tone tone;
};

std::optional<Lead> leadOf(const CommandLine::Options &options, const ElementDataSource &elements)
{
    const GenerateOptions &asked = options.generate;
    Lead lead{asked.color.value_or(0), asked.harmony.value_or(Harmony::Single), asked.tone};
    if (asked.seed) {
        // What is drawn suits the tone; nobody has to have asked for one.
        const ThemeColors base(elements);
        const bool hasBase = lead.tone == Tone::AsItIs && !options.theme.isEmpty();
        const auto [color, harmony, tone] =
            drawnWish(*asked.seed, hasBase ? ThemeTone(base, base.relations()).tone() : lead.tone);
        lead = {color, asked.harmony.value_or(harmony), hasBase ? Tone::AsItIs : tone};
    } else if (!asked.color) {
        const auto palette = paletteOfPicture(asked.picture);
        if (!palette)
            return std::nullopt;
        lead.color = palette->candidates.front().color;
    }
    return lead;
}

void complainOf(const std::vector<Finding> &left, const ElementDataSource &elements)
{
    const auto keyOf = [&elements](int index) { return elements.tableSource()[size_t(index)].key; };
    for (const Finding &finding : left)
        complain(u"hard to see still: %1 on %2; 'tintloom check' says more"_s.arg(
            keyOf(finding.element), keyOf(finding.on)));
}
} // namespace

int runGenerate(const CommandLine::Options &options)
{
    // What another Tintloom saves between load and save would be undone by this save.
    const auto keeper = openKeeper(options);
    if (!keeper)
        return ExitStatus::failed;
    ThemeDocument document(ElementDataSource::load(options.resources, options.documents));
    const ElementDataSource before = document.elements();
    if (before.status() != ElementDataSource::Status::Loaded) {
        complain(u"nothing to change: %1"_s.arg(before.problem()));
        return ExitStatus::failed;
    }
    if (const int status = lockElements(document, options))
        return status;
    if (const int status = takeBase(document, options))
        return status;
    const auto lead = leadOf(options, document.elements());
    if (!lead)
        return ExitStatus::failed;
    const ThemeGenerator generator(document.elements(), document.lockedElements(), lead->tone);
    GeneratedTheme theme =
        generator.generate({lead->color, ThemeGenerator::usualElement(document.elements()),
                            lead->harmony, options.generate.strength});
    document.changeUnlocked(std::move(theme.changes), u"Generate"_s);
    complainOf(theme.left, document.elements());
    if (options.generate.dryRun)
        return print(jsonList(document.elements()));
    if (document.hasUnsavedChanges() && !writeChoices(options, *keeper, document.elements()))
        return ExitStatus::failed;
    return print(describe(document.unsavedChanges(), before).toUtf8());
}
