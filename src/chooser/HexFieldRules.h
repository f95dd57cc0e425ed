// Which edits the chooser's field of colour text takes: at most nine characters, of which typed
// ones are hexadecimal digits, behind a "#" that supplies itself.
#pragma once

#include <QStringView>

struct HexFieldAnswer {
    /// Whether the edit may happen.
    bool allowed;
    /// Whether "#" is to take the edited range's place first, allowed or not.
    bool suppliesHash;

    bool operator==(const HexFieldAnswer &) const = default;
};

/// For an edit that puts `replacement` in the place of `rangeLength` of the field's `length`
/// characters (UTF-16 code units). A replacement of nine is a whole colour text and goes in as it
/// is, whatever it spells.
HexFieldAnswer answerHexFieldEdit(qsizetype length, qsizetype rangeLength, QStringView replacement);
