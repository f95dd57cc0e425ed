// Edits of elements in text form, as the command line takes them.
#pragma once

#include "theme/ThemeDocument.h"

#include <QString>
#include <QStringList>

#include <optional>

/// What is wrong with a key that no element has, and which ones are near it.
QString unknownKey(const ElementDataSource &source, const QString &key);

/// Applies edits "KEY=VALUE" as one step, in order, each to every element with that key; the first
/// "=" parts the two. For a colour element VALUE is 3, 6 or 8 hexadecimal digits with or without
/// "#", or empty to remove the colour; for a choice element it is an option's label. Returns what
/// is wrong with the first edit that cannot be applied and what would be accepted; nothing has
/// changed then.
std::optional<QString> applyEdits(ThemeDocument &document, const QStringList &edits);

/// What is wrong with the first picture that cannot be chosen.
struct PictureProblem {
    QString text;
    bool isUsage; // not with its file, but with its key
};
/// Chooses pictures "KEY=FILE", as one step; nothing changes when one of them cannot be.
std::optional<PictureProblem> applyPictures(ThemeDocument &document, const QStringList &edits);
