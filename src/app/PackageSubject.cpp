#include "app/PackageSubject.h"

#include "app/OpenKeeper.h"
#include "app/StandardStreams.h"
#include "app/ThemeSubject.h"
#include "library/ChosenPackage.h"
#include "library/EditedTheme.h"
#include "library/OpenedTheme.h"
#include "library/ThemeLibrary.h"

using namespace Qt::StringLiterals;

namespace
{
PackageSubject currentPackage(const CommandLine::Options &options)
{
    const auto [elements, status] = themeSubject(options);
    if (!elements)
        return {{}, {}, status};
    PackageSubject subject{{}, u"Tintloom"_s, 0};
    const auto library = ThemeLibrary::open(options.documents);
    const auto origin = EditedTheme(locationsOf(options).preferences()).name();
    const auto kept = origin ? library->find(*origin) : std::nullopt;
    if (kept)
        subject.name = kept->name;
    subject.contents = packageContents(*elements, subject.name, options.scale);
    if (!kept)
        return subject;
    const auto [contents, result] = library->read(kept->name);
    if (!contents) {
        complain(result.sentence);
        return {};
    }
    addGuestsOf(*contents, ElementDataSource::loadWith(options.resources, &contents->info),
                *subject.contents);
    return subject;
}

/// As it is, but that it bears its name.
PackageSubject namedPackage(const CommandLine::Options &options)
{
    const auto [folder, name, status] = themeFolder(options);
    if (folder.isEmpty())
        return {{}, {}, status};
    const auto list = ElementDataSource::loadWith(options.resources, nullptr);
    if (list.status() != ElementDataSource::Status::Loaded) {
        complain(u"no list of elements: %1"_s.arg(list.problem()));
        return {};
    }
    const auto [opened, problem] = ThemeOpener(list).fromPath(folder);
    if (!opened) {
        complain(problem);
        return {};
    }
    PackageSubject subject{opened->contents, name.isEmpty() ? opened->name : name, 0};
    subject.contents->info.setValue(u"name"_s, subject.name);
    return subject;
}
} // namespace

PackageSubject packageSubject(const CommandLine::Options &options)
{
    return options.theme.isEmpty() ? currentPackage(options) : namedPackage(options);
}
