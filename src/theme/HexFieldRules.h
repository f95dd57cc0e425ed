// Which edits the chooser's field of colour text takes: at most nine characters, of which typed
// ones are hexadecimal digits, behind a "#" that supplies itself.
#pragma once

#include "platform/foundation/NSRange.h"

#include <QString>

#include <optional>

struct HexFieldAnswer {
    /// Whether the edit may happen.
    bool allowed;
    /// What the field is to hold before that, whether it happens or not: "#" in the range's place.
    std::optional<QString> instead;

    bool operator==(const HexFieldAnswer &) const = default;
};

/// For an edit that puts `replacement` in the place of a range of the field's text. A replacement
/// of nine characters (UTF-16 code units) passes for a whole colour text and goes in whatever it
/// spells, as on the phone.
HexFieldAnswer answerHexFieldEdit(const QString &text, NSRange range, const QString &replacement);
