// Names of kept themes: what a person typed becomes a name, and a name the name of a folder.
//
// Two names are the same when they differ in case alone, or in how their accents are composed: a
// person would not tell them apart in a list, and many a disk would not either.
#pragma once

#include <QSet>
#include <QString>

namespace ThemeName
{
constexpr qsizetype mostCharacters = 80; // code points

struct Typed {
    QString name;    // without white space around it
    QString problem; // why it cannot be a name, for people; else empty
};
Typed fromTyped(const QString &text);

/// Equal for names that are the same.
QString key(const QString &name);

/// The name itself, or with the first number from 2 on that makes it one whose key is not taken,
/// shortened before the number where it would be too long.
QString freeName(const QString &name, const QSet<QString> &takenKeys);

/// A folder's name that leads nowhere else, at most 100 bytes of UTF-8: letters, digits, blanks,
/// "-" and "_" alone. Where that changes the name, or disks disagree about its case, a hash of the
/// name's key tells it from others. None of `taken` is the same but for case.
QString freeFolder(const QString &name, const QStringList &taken);
} // namespace ThemeName
