// Which kept theme the current choices were made from, remembered between runs.
#pragma once

#include "platform/foundation/NSUserDefaults.h"

#include <optional>
#include <system_error>

class EditedTheme
{
public:
    explicit EditedTheme(const QString &preferences) : _defaults(preferences) {}

    /// Nothing when they were made from none, or from one that nobody remembers. Any thread.
    std::optional<QString> name() const;
    /// Reaches the disk at once, if it changes anything. Forget it before the choices are replaced
    /// and set it after: who is killed in between leaves no wrong name. Any thread.
    std::error_code set(const std::optional<QString> &name);

    /// That theme has been removed: the choices are made from none now, but should it be put back
    /// while they are still the same, whoever does that sets it again. The next set() forgets it.
    std::error_code setRemoved(const QString &name);
    std::optional<QString> removed() const;

private:
    std::optional<QString> textFor(const QString &key) const;

    NSUserDefaults _defaults;
};
