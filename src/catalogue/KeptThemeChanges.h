// What a person changes among the kept themes: the library, and with it what is remembered of the
// themes by name, which is installed and which the choices were made from.
#pragma once

#include "library/ThemeLibrary.h"
#include "theme/ThemeLocations.h"

#include <memory>
#include <system_error>

class WorkingCopyKeeper;

/// For one action, as the library. Any thread, one at a time, but not a window's main one.
class KeptThemeChanges
{
public:
    /// Locks all folders, in the order in which everybody locks them.
    explicit KeptThemeChanges(const ThemeLocations &locations);

    /// Why nothing may be touched, for people; else empty. Then there is no library.
    QString refusal() const;
    ThemeLibrary &library() { return *_library; }

    struct Change {
        LibraryResult result;
        std::error_code unnoted; // done, but the preferences could not be written
    };
    Change rename(const QString &name, const QString &newName);
    /// Under its own name with a number.
    LibraryResult duplicate(const QString &name);
    Change remove(const QString &name);
    /// Undoes that, whoever did it last.
    Change putBack(const QString &name);

private:
    const QString _preferences;
    const std::shared_ptr<WorkingCopyKeeper> _keeper;
    const std::shared_ptr<ThemeLibrary> _library;
};
