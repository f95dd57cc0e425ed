// How a theme's property list leads to the whole picture behind its list.
//
// A theme has that picture as it is shown, in a file of its own. The working copy, and packages
// that are kept or passed on, hold the whole one as well, so that it can be placed anew:
//
//   Info.plist               the entry "<key>.picture", a dictionary: "file", "x", "y", "zoom", and
//                            "color", the picture's mean
//   Picture-<SHA-256>.jpg    beside it, written before what leads to it
#pragma once

#include "theme/ElementDataSource.h"
#include "theme/ThemeLocations.h"

#include <functional>
#include <optional>

namespace PictureEntry
{
/// Of the one element that can have a picture.
QString key();
/// The file for a picture, made of its content.
QString fileName(const QByteArray &picture);
/// The theme of these elements, with the entry of their picture where they have one.
PropertyDictionary addedTo(PropertyDictionary theme, const ElementDataSource &elements);

/// The file to which the entry leads, if it leads to one that can be beside it.
std::optional<QString> fileIn(const PropertyDictionary &info);
/// The bytes of a file beside the property list; empty where there is none.
using FileReader = std::function<QByteArray(const QString &name)>;
FileReader filesIn(const QString &folder);
/// Puts the file's bytes into the entry, for valueIn() only; where it is missing or has another
/// content, none, with a log line.
void readFile(PropertyDictionary &info, const FileReader &files);
/// What the entry makes of the record's value; nothing where there is no such picture.
std::optional<QVariant> valueIn(const PropertyDictionary &info, const ElementRecord &record);
/// The entry of a theme that nobody answers for, rid of what does not belong there; nothing where
/// it leads to no picture, or the theme has another colour than that.
std::optional<QVariant> checked(PropertyDictionary info, const FileReader &files);

/// Removes the files beside the working copies to which none of these leads, the one set aside and
/// the earlier one among them; none while one of these cannot be read.
void removeUnused(const ThemeLocations &locations);
} // namespace PictureEntry
