#include "library/KeepChoices.h"

#include "library/ChosenPackage.h"
#include "library/EditedTheme.h"

#include <algorithm>

using namespace Qt::StringLiterals;
using Outcome = LibraryResult::Outcome;

namespace
{
std::optional<KeptTheme> originOf(const CurrentChoices &choices, const ThemeLibrary &library)
{
    const auto name = EditedTheme(choices.locations.preferences()).name();
    return name ? library.find(*name) : std::nullopt;
}

/// The choices with what belongs to that theme, if any.
NamedPackage packageWithGuests(const CurrentChoices &choices, const QString &name,
                               const std::optional<KeptTheme> &origin, const ThemeLibrary &library)
{
    NamedPackage package{packageContents(choices.elements, name, choices.scale), name, {}};
    if (std::ranges::any_of(package.contents->files,
                            [](const auto &file) { return file.second.isEmpty(); }))
        return {{}, name, u"not enough memory for the pictures"_s};
    if (!origin)
        return package;
    const auto [contents, result] = library.read(origin->name);
    if (!contents)
        return {{}, name, result.sentence};
    addGuestsOf(*contents, elementsOf(*contents, choices.resources), *package.contents);
    return package;
}
} // namespace

NamedPackage packageOfChoices(const CurrentChoices &choices, const ThemeLibrary &library)
{
    const auto origin = originOf(choices, library);
    return packageWithGuests(choices, origin ? origin->name : u"Tintloom"_s, origin, library);
}

ChoicesKept keepChoices(const CurrentChoices &choices, const QString &name,
                        ThemeLibrary::IfTaken ifTaken, ThemeLibrary &library)
{
    auto origin = originOf(choices, library);
    // Where nobody knows it, what is replaced is the nearest to it.
    if (!origin && ifTaken == ThemeLibrary::IfTaken::Replace)
        origin = library.find(name);
    const auto package = packageWithGuests(choices, name, origin, library);
    if (!package.contents)
        return {{Outcome::Failed, package.problem, {}}, {}};
    const auto result = library.keep(*package.contents, name, ifTaken);
    if (!result.isDone())
        return {result, {}};
    return {result, EditedTheme(choices.locations.preferences()).set(result.name)};
}

NamedPackage packageInFolder(const QString &folder, const QString &name, const QString &resources)
{
    const auto list = ElementDataSource::loadWith(resources, nullptr);
    if (list.status() != ElementDataSource::Status::Loaded)
        return {{}, name, u"no list of elements: %1"_s.arg(list.problem())};
    const auto [opened, problem] = ThemeOpener(list).fromPath(folder);
    if (!opened)
        return {{}, name, problem};
    NamedPackage package{opened->contents, name.isEmpty() ? opened->name : name, {}};
    package.contents->info.setValue(u"name"_s, package.name);
    return package;
}

LibraryResult keepOpened(const OpenedTheme &opened, const QString &name,
                         ThemeLibrary::IfTaken ifTaken, const QString &resources, double scale,
                         ThemeLibrary &library)
{
    const auto elements = elementsOf(opened.contents, resources);
    return library.keep(completedPackage(opened, packageContents(elements, opened.name, scale)),
                        name, ifTaken);
}
