#include "app/LibraryCommands.h"

#include "app/NearestNames.h"
#include "app/OpenKeeper.h"
#include "app/StandardStreams.h"
#include "app/ThemeSubject.h"
#include "catalogue/SelectedTheme.h"
#include "library/ChosenPackage.h"
#include "library/EditedTheme.h"
#include "library/ThemeLibrary.h"
#include "library/ThemeName.h"
#include "platform/foundation/NSFileManager.h"

#include <algorithm>

using namespace Qt::StringLiterals;
using Outcome = LibraryResult::Outcome;

namespace
{
constexpr int failed = 1;
constexpr int wrongUsage = 2;

/// The folders and the library, locked in the order in which everybody locks them.
struct Opened {
    std::shared_ptr<WorkingCopyKeeper> keeper; // null: refused, which standard error says
    std::shared_ptr<ThemeLibrary> library;
    QString preferences;
};

Opened opened(const CommandLine::Options &options)
{
    Opened result{openKeeper(options), {}, locationsOf(options).preferences()};
    if (result.keeper)
        result.library = ThemeLibrary::open(options.documents);
    return result;
}

int refused(const LibraryResult &result, const QString &hint = {})
{
    complain(hint.isEmpty() ? result.sentence : result.sentence + "; "_L1 + hint);
    return result.outcome == Outcome::Failed ? failed : wrongUsage;
}

/// Told with the names that may have been meant, where there is no such theme.
int refusedOf(const LibraryResult &result, const QString &name, const ThemeLibrary &library)
{
    return refused(result, result.outcome == Outcome::NoSuchTheme
                               ? nearestThemes(name, library.names())
                               : QString());
}

int told(const LibraryResult &result, const QString &preferences, const std::error_code &error,
         const QString &hint = {})
{
    if (error) {
        complain(u"%1; but cannot write %2"_s.arg(result.sentence,
                                                  NSFileManager::withReason(preferences, error)));
        return failed;
    }
    return print((result.sentence + u'\n' + hint).toUtf8());
}

bool isSame(const std::optional<QString> &name, const QString &other)
{
    return name && ThemeName::isSame(*name, other.trimmed());
}

/// Adds what belongs to the theme that the choices were made from or, where nobody knows which one
/// that is, to the one that is replaced. Why that cannot be read, for people; else empty.
QString addGuests(const CommandLine::Options &options, const Opened &opened,
                  PackageContents &package)
{
    auto origin = EditedTheme(opened.preferences).name();
    if (!origin || !opened.library->find(*origin))
        origin = options.replace ? std::optional(options.theme) : std::nullopt;
    if (!origin || !opened.library->find(*origin))
        return {};
    const auto [contents, result] = opened.library->read(*origin);
    if (!contents)
        return result.sentence;
    const auto elements = ElementDataSource::loadWith(options.resources, &contents->info);
    addGuestsOf(*contents, elements, package);
    return {};
}
} // namespace

int runKeep(const CommandLine::Options &options)
{
    const Opened opened = ::opened(options);
    if (!opened.keeper)
        return failed;
    const auto [elements, status] = currentChoices(options);
    if (!elements)
        return status;
    PackageContents package = packageContents(*elements, options.theme, options.scale);
    if (std::ranges::any_of(package.files, [](auto &file) { return file.second.isEmpty(); })) {
        complain(u"not enough memory for the pictures; nothing kept"_s);
        return failed;
    }
    if (const QString problem = addGuests(options, opened, package); !problem.isEmpty()) {
        complain(problem + "; nothing kept"_L1);
        return failed;
    }
    const auto result = opened.library->keep(package, options.theme,
                                             options.replace ? ThemeLibrary::IfTaken::Replace
                                                             : ThemeLibrary::IfTaken::Refuse);
    if (result.outcome == Outcome::NameTaken)
        return refused(result, u"--replace puts the choices in its place"_s);
    if (!result.isDone())
        return refused(result);
    return told(result, opened.preferences, EditedTheme(opened.preferences).set(result.name));
}

int runRename(const CommandLine::Options &options)
{
    const Opened opened = ::opened(options);
    if (!opened.keeper)
        return failed;
    const auto result = opened.library->rename(options.theme, options.newName);
    if (!result.isDone())
        return refusedOf(result, options.theme, *opened.library);
    std::error_code error;
    if (EditedTheme edited(opened.preferences); isSame(edited.name(), options.theme))
        error = edited.set(result.name);
    if (SelectedTheme selected(opened.preferences);
        !error && selected.isKept() && isSame(selected.name(), options.theme))
        error = selected.set(result.name, true);
    return told(result, opened.preferences, error);
}

int runDuplicate(const CommandLine::Options &options)
{
    const Opened opened = ::opened(options);
    if (!opened.keeper)
        return failed;
    const auto result = opened.library->duplicate(options.theme, options.newName);
    return result.isDone() ? told(result, opened.preferences, {})
                           : refusedOf(result, options.theme, *opened.library);
}

int runRemove(const CommandLine::Options &options)
{
    const Opened opened = ::opened(options);
    if (!opened.keeper)
        return failed;
    if (options.undo) {
        const auto result = opened.library->putBack(options.theme);
        return result.isDone() ? told(result, opened.preferences, {}) : refused(result);
    }
    const auto result = opened.library->remove(options.theme);
    if (!result.isDone())
        return refusedOf(result, options.theme, *opened.library);
    std::error_code error;
    if (EditedTheme edited(opened.preferences); isSame(edited.name(), options.theme))
        error = edited.set(std::nullopt);
    return told(result, opened.preferences, error,
                u"\"tintloom remove --undo NAME\" does that.\n"_s);
}
