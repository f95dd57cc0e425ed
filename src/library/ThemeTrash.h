// The trash of the library: kept themes that were removed or replaced, for 30 days.
//
//   <documents>/Themes/.Trash/<time of the removal> <folder>/
//
// One rename takes a theme there, and one takes it back.
#pragma once

#include <QDateTime>
#include <QString>
#include <QStringList>

#include <system_error>

/// Only while the library is locked.
class ThemeTrash
{
public:
    static constexpr int days = 30;

    explicit ThemeTrash(const QString &themes) : _folder(themes + QLatin1String("/.Trash")) {}

    struct Moved {
        QString folder;  // where it lies now
        QString problem; // why it could not be moved, for people; else empty
    };
    Moved add(const QString &folder, const QDateTime &now);

    /// Folders that can be put back, the last removed first.
    QStringList folders(const QDateTime &now) const;
    /// The name that such a folder had among the themes.
    static QString nameBefore(const QString &folder);

    /// Removes for good what is older than 30 days. What cannot be removed stays for the next time.
    void removeOld(const QDateTime &now);

private:
    const QString _folder;
};

/// Renames a folder in one step. That it was done and could not be flushed is said in the log only:
/// no move back would be any safer.
std::error_code moveFolder(const QString &from, const QString &to);
