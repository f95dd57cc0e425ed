#include "catalogue/window/KeptThemeMenu.h"

#include "catalogue/KeptThemeChanges.h"
#include "catalogue/window/ThemeSending.h"
#include "platform/foundation/NSFileManager.h"

namespace
{
using Outcome = LibraryResult::Outcome;

/// What the change of the kept themes at these locations comes to.
template <typename Change>
LibraryResult cameOf(const ThemeLocations &locations, Change change)
{
    KeptThemeChanges changes(locations);
    if (!changes.refusal().isEmpty())
        return {Outcome::Failed, changes.refusal(), {}};
    return change(changes);
}

LibraryResult told(const KeptThemeChanges::Change &change, const ThemeLocations &locations)
{
    LibraryResult result = change.result;
    if (change.unnoted)
        result.sentence +=
            u'\n' + NSFileManager::withReason(locations.preferences(), change.unnoted);
    return result;
}
} // namespace

KeptThemeMenu::KeptThemeMenu(ThemeDesk &desk, ScreenOverlays &overlays,
                             const ThemeLocations &locations)
    : _desk(desk), _overlays(overlays), _locations(locations)
{
}

void KeptThemeMenu::show(const QString &name)
{
    _menu = ActionMenu::show(name, actions(name));
}

Actions KeptThemeMenu::actions(const QString &name)
{
    return {{tr("Rename"), [=, this] { rename(name); }},
            {tr("Duplicate"), [=, this] { duplicate(name); }},
            {tr("Export"), [=, this] { _desk.exportTheme(_desk.packageOf(name), name); }},
            {tr("Share"), [=, this] { _desk.share(_desk.packageOf(name)); }},
            sendAction(_locations.documents, name, _desk.packageOf(name)),
            {tr("Remove"), [=, this] { remove(name); }}};
}

void KeptThemeMenu::rename(const QString &name)
{
    _desk.askForName(tr("Rename %1").arg(name), tr("Rename"), name, NameEntry::Replacing::Never,
                     [name, locations = _locations](const QString &newName, ThemeLibrary::IfTaken) {
                         return cameOf(locations, [&](KeptThemeChanges &changes) {
                             return told(changes.rename(name, newName), locations);
                         });
                     });
}

void KeptThemeMenu::duplicate(const QString &name)
{
    _work.run(
        [name, locations = _locations] {
            return cameOf(locations,
                          [&](KeptThemeChanges &changes) { return changes.duplicate(name); });
        },
        [this](const LibraryResult &result) { tell(result, result.name); });
}

void KeptThemeMenu::remove(const QString &name)
{
    _work.run(
        [name, locations = _locations] {
            return cameOf(locations, [&](KeptThemeChanges &changes) {
                return told(changes.remove(name), locations);
            });
        },
        [this](const LibraryResult &result) {
            tell(result, {}, {{tr("Undo"), [=, this] { putBack(result.name); }}});
        });
}

void KeptThemeMenu::putBack(const QString &name)
{
    _overlays.setNotice({});
    _work.run(
        [name, locations = _locations] {
            return cameOf(locations, [&](KeptThemeChanges &changes) {
                return told(changes.putBack(name), locations);
            });
        },
        [this](const LibraryResult &result) { tell(result, result.name); });
}

void KeptThemeMenu::tell(const LibraryResult &result, const QString &changedName, Actions actions)
{
    if (result.isDone())
        _overlays.showQuietly(result.sentence, std::move(actions));
    else
        _overlays.setNotice(result.sentence);
    emit changed(changedName);
}
