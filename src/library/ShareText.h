// A theme as a line of text, which can be pasted wherever people write to one another.
//
//   tintloom:1:PAYLOAD
//
// The payload is base64url, without padding, of: the number of bytes that follow, so that the end
// is found whatever stands behind; two bits for each element that ships, the first element in the
// lowest bits; the values of those that have one, in the same order; the theme's name; the number
// of other entries, with key and value each; and the first four bytes of the SHA-256 of all before.
//
//   bits  a colour                      an option
//   0     there is none                 there is none
//   1     4 bytes: red green blue alpha its index among the element's options
//   2     removed: the empty text       (unused)
//   3     any value                     any value
//
// Numbers, texts and values stand as in CompactBytes.h. The order of elements and options is
// version 1 itself: it does not change when the list of elements does; a new element travels by its
// key. The balloons' arrays follow from their colours and are left out.
#pragma once

#include "platform/foundation/PropertyList.h"

#include <QString>

#include <optional>

namespace ShareText
{
struct Theme {
    QString name; // as it was given; anything
    /// What the package's Info.plist holds beside the name, the fixed head where it is as always,
    /// the balloons' arrays, and what leads to a picture. Elements that ship come first.
    PropertyDictionary info;
};

struct Reading {
    std::optional<Theme> theme;
    QString problem; // why there is none, a clause for people; else empty
};

/// One line of ASCII. What the entry "name" holds does not count.
QString write(const PropertyDictionary &info, const QString &name);

/// The first theme anywhere in a text, broken into lines or quoted in a mail as it may be; capital
/// letters before the second colon do not matter. Takes time linear in the text's length, of which
/// at most `longest` characters.
Reading read(const QString &text);

/// Characters.
constexpr qsizetype longest = 6 * 1024 * 1024;
/// Whether a text is meant as one: it has the beginning of a theme in it, of any version.
bool isMeant(const QString &text);

/// Keys of entries that a text cannot hold: those that nest too deep.
QStringList entriesLeftOut(const PropertyDictionary &info);
} // namespace ShareText
