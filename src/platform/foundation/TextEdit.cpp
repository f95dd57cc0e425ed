#include "platform/foundation/TextEdit.h"

#include <algorithm>

TextContent TextContent::withCursor(const QString &text, qsizetype cursor)
{
    return {text, cursor, cursor, cursor};
}

TextEdit editBetween(const TextContent &before, const TextContent &after, qsizetype offset)
{
    // The cursor stands behind what came in, and what follows it has not changed. What came in
    // begins where the selection or the cursor was, or further left if the edit deleted there.
    const qsizetype end =
        std::max<qsizetype>(before.text.size() - (after.text.size() - after.cursor), 0);
    const qsizetype start =
        std::clamp<qsizetype>(std::min(before.selectionStart + offset, after.cursor), 0, end);
    return {{start, end - start}, after.text.mid(start, after.cursor - start)};
}

std::optional<TextContent> contentAfterAnswer(const TextContent &before, const QString &replacement,
                                              bool allowed, const std::optional<QString> &instead)
{
    if (!allowed)
        return instead ? TextContent::withCursor(*instead, instead->size()) : before;
    if (!instead || replacement.isEmpty())
        return std::nullopt;
    return TextContent::withCursor(*instead + replacement, instead->size() + replacement.size());
}
