// The name of the installed theme, remembered between runs.
#pragma once

#include "platform/foundation/NSUserDefaults.h"

#include <optional>

class SelectedTheme
{
public:
    explicit SelectedTheme(const QString &preferences) : _defaults(preferences) {}

    /// Nothing when none was ever chosen; empty when what was stored is no name. Any thread.
    std::optional<QString> name() const;
    /// Stores the name and writes it to the disk at once. Any thread.
    std::error_code set(const QString &name);

private:
    NSUserDefaults _defaults;
};
