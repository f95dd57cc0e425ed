#include "catalogue/KeptThemeChanges.h"

#include "catalogue/SelectedTheme.h"
#include "library/EditedTheme.h"
#include "library/ThemeName.h"
#include "theme/WorkingCopyKeeper.h"

namespace
{
bool isSame(const std::optional<QString> &name, const QString &other)
{
    return name && ThemeName::isSame(*name, other.trimmed());
}
} // namespace

KeptThemeChanges::KeptThemeChanges(const ThemeLocations &locations)
    : _preferences(locations.preferences()),
      _keeper(WorkingCopyKeeper::open(locations)),
      _library(_keeper->refusal().isEmpty() ? ThemeLibrary::open(locations.documents) : nullptr)
{
}

QString KeptThemeChanges::refusal() const
{
    return _library ? _library->refusal() : _keeper->refusal();
}

KeptThemeChanges::Change KeptThemeChanges::rename(const QString &name, const QString &newName)
{
    Change change{_library->rename(name, newName), {}};
    if (!change.result.isDone())
        return change;
    if (EditedTheme edited(_preferences); isSame(edited.name(), name))
        change.unnoted = edited.set(change.result.name);
    if (SelectedTheme selected(_preferences);
        !change.unnoted && selected.isKept() && isSame(selected.name(), name))
        change.unnoted = selected.set(change.result.name, true);
    return change;
}

LibraryResult KeptThemeChanges::duplicate(const QString &name)
{
    const auto result = _library->duplicate(name, name);
    return result.outcome == LibraryResult::Outcome::NameTaken
               ? _library->duplicate(name, result.name)
               : result;
}

KeptThemeChanges::Change KeptThemeChanges::remove(const QString &name)
{
    Change change{_library->remove(name), {}};
    if (!change.result.isDone())
        return change;
    EditedTheme edited(_preferences);
    if (isSame(edited.name(), name))
        change.unnoted = edited.setRemoved(change.result.name);
    else if (isSame(edited.removed(), name)) // another one, which would be put back in its place
        change.unnoted = edited.set(edited.name());
    return change;
}

KeptThemeChanges::Change KeptThemeChanges::putBack(const QString &name)
{
    Change change{_library->putBack(name), {}};
    if (EditedTheme edited(_preferences); change.result.isDone() && isSame(edited.removed(), name))
        change.unnoted = edited.set(change.result.name);
    return change;
}
