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
    /// Whether it is one of the user's kept themes: a ready-made one may have the same name. Any
    /// thread.
    bool isKept() const;
    /// Stores the name and writes it to the disk at once. Any thread.
    std::error_code set(const QString &name, bool isKept = false);

private:
    NSUserDefaults _defaults;
};
