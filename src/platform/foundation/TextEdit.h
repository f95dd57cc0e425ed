// The rules of a text field that asks before a person's edit changes its text, without the field:
// what an edit replaced by what, and what the field is to hold once the answer is there.
#pragma once

#include "platform/foundation/NSRange.h"

#include <QString>

#include <optional>

/// What an editor shows: its text, selection and cursor, in UTF-16 code units.
struct TextContent {
    QString text;
    qsizetype selectionStart = 0;
    qsizetype selectionEnd = 0;
    qsizetype cursor = 0; // where the selection is empty, both its ends too

    /// Nothing selected.
    static TextContent withCursor(const QString &text, qsizetype cursor);
};

struct TextEdit {
    NSRange range; // of the text before
    QString replacement;
};

/// What an editor did between two contents. Texts alone would not tell where a letter went in among
/// equal ones; selection and cursor do. `offset` is where the range begins, counted from the
/// selection before, for an edit that begins with a deletion of its own.
TextEdit editBetween(const TextContent &before, const TextContent &after, qsizetype offset = 0);

/// What the field is to hold after its delegate's answer to an edit; nothing where the edit may
/// stand. `instead` is the text that the delegate set in its answer: a refusal leaves it, an
/// allowed insertion goes to its end, and an allowed deletion leaves what the deletion alone does.
std::optional<TextContent> contentAfterAnswer(const TextContent &before, const QString &replacement,
                                              bool allowed, const std::optional<QString> &instead);
