#include "app/LibraryCommands.h"

#include "app/ExitStatus.h"
#include "app/NearestNames.h"
#include "app/OpenKeeper.h"
#include "app/StandardStreams.h"
#include "app/ThemeSubject.h"
#include "catalogue/KeptThemeChanges.h"
#include "library/KeepChoices.h"
#include "platform/foundation/NSFileManager.h"

using namespace Qt::StringLiterals;

namespace
{
/// Null: refused, which standard error says.
std::unique_ptr<KeptThemeChanges> opened(const CommandLine::Options &options)
{
    auto changes = std::make_unique<KeptThemeChanges>(locationsOf(options));
    if (changes->refusal().isEmpty())
        return changes;
    complain(changes->refusal());
    return nullptr;
}

int refused(const LibraryResult &result, const QString &hint = {})
{
    complain(hint.isEmpty() ? result.sentence : result.sentence + "; "_L1 + hint);
    return result.outcome == LibraryResult::Outcome::Failed ? ExitStatus::failed
                                                            : ExitStatus::wrongUsage;
}

/// Told with the names that may have been meant, where there is no such theme.
int refusedOf(const LibraryResult &result, const QString &name, const ThemeLibrary &library)
{
    return refused(result, result.outcome == LibraryResult::Outcome::NoSuchTheme
                               ? nearestThemes(name, library.names())
                               : QString());
}

int told(const CommandLine::Options &options, const LibraryResult &result,
         const std::error_code &error, const QString &hint = {})
{
    if (error) {
        const QString preferences = locationsOf(options).preferences();
        complain(u"%1; but cannot write %2"_s.arg(result.sentence,
                                                  NSFileManager::withReason(preferences, error)));
        return ExitStatus::failed;
    }
    return print((result.sentence + u'\n' + hint).toUtf8());
}
} // namespace

int runKeep(const CommandLine::Options &options)
{
    const auto changes = opened(options);
    if (!changes)
        return ExitStatus::failed;
    const auto [elements, status] = currentChoices(options);
    if (!elements)
        return status;
    const auto [result, unnoted] = keepChoices(
        {*elements, options.resources, locationsOf(options), options.scale}, options.theme,
        options.replace ? ThemeLibrary::IfTaken::Replace : ThemeLibrary::IfTaken::Refuse,
        changes->library());
    if (result.outcome == LibraryResult::Outcome::NameTaken)
        return refused(result, u"--replace puts the choices in its place"_s);
    if (!result.isDone())
        return refused(result);
    return told(options, result, unnoted);
}

int runRename(const CommandLine::Options &options)
{
    const auto changes = opened(options);
    if (!changes)
        return ExitStatus::failed;
    const auto [result, unnoted] = changes->rename(options.theme, options.newName);
    return result.isDone() ? told(options, result, unnoted)
                           : refusedOf(result, options.theme, changes->library());
}

int runDuplicate(const CommandLine::Options &options)
{
    const auto changes = opened(options);
    if (!changes)
        return ExitStatus::failed;
    const auto result = changes->library().duplicate(options.theme, options.newName);
    return result.isDone() ? told(options, result, {})
                           : refusedOf(result, options.theme, changes->library());
}

int runRemove(const CommandLine::Options &options)
{
    const auto changes = opened(options);
    if (!changes)
        return ExitStatus::failed;
    if (options.undo) {
        const auto [result, unnoted] = changes->putBack(options.theme);
        return result.isDone() ? told(options, result, unnoted) : refused(result);
    }
    const auto [result, unnoted] = changes->remove(options.theme);
    return result.isDone()
               ? told(options, result, unnoted, u"\"tintloom remove --undo NAME\" does that.\n"_s)
               : refusedOf(result, options.theme, changes->library());
}
