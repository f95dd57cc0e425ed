// A look at the bytes of a property list before libplist gets them.
//
// libplist walks a list by recursion and expands shared references in full, so that a small hostile
// file can exhaust the stack or the memory. These checks refuse such files in time linear in their
// length; they do not say that a file is well-formed, that is libplist's part. An honest list
// passes, whatever its length.
#pragma once

#include <QByteArrayView>

namespace PropertyListGuard
{
/// How deep arrays and dictionaries may nest: deeper than Qt's JSON reader goes (1024), so that
/// every value of a data source can be read back once it is saved.
constexpr int maximumDepth = 1536;

/// False for XML that nests too deep, or that holds something in which a tag could hide from this
/// check but not from libplist (or the other way round): markup inside a tag or declaration,
/// unpaired quotes, an embedded document type.
bool isSafeXml(QByteArrayView xml);

/// False for a binary list that nests too deep, refers to itself, points outside itself, has text
/// with a zero character inside, or whose shared references multiply its objects far beyond its own
/// length.
bool isSafeBinary(QByteArrayView bytes);
} // namespace PropertyListGuard
