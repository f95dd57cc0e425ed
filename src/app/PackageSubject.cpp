#include "app/PackageSubject.h"

#include "app/OpenKeeper.h"
#include "app/StandardStreams.h"
#include "app/ThemeSubject.h"
#include "library/KeepChoices.h"

using namespace Qt::StringLiterals;

namespace
{
PackageSubject currentPackage(const CommandLine::Options &options)
{
    const auto [elements, status] = themeSubject(options);
    if (!elements)
        return {{}, {}, status};
    const auto library = ThemeLibrary::open(options.documents);
    const auto [contents, name, problem] = packageOfChoices(
        {*elements, options.resources, locationsOf(options), options.scale}, *library);
    if (contents)
        return {contents, name, 0};
    complain(problem);
    return {};
}

/// As it is, but that it bears its name.
PackageSubject namedPackage(const CommandLine::Options &options)
{
    const auto [folder, name, status] = themeFolder(options);
    if (folder.isEmpty())
        return {{}, {}, status};
    auto [contents, shownName, problem] = packageInFolder(folder, name, options.resources);
    if (contents)
        return {std::move(contents), shownName, 0};
    complain(problem);
    return {};
}
} // namespace

PackageSubject packageSubject(const CommandLine::Options &options)
{
    return options.theme.isEmpty() ? currentPackage(options) : namedPackage(options);
}
