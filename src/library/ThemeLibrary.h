// The user's own themes: each a complete package under a name.
//
//   <documents>/Themes/<folder>/...     a kept theme; the name in its Info.plist is its name, the
//                                       folder's only resembles it
//   <documents>/Themes/.Trash/...       what was removed or replaced (ThemeTrash)
//   <documents>/Themes/.New/<folder>    what is just being written
//
// A theme is written below .New, its property list last, and comes to its place in one rename. One
// that it replaces goes to the trash before. So whoever finds a .New while nobody holds the lock
// has found an interrupted change: a theme in it that has a property list is whole, and if nothing
// stands in its place, that is where it goes, for the old one may be in the trash already. All else
// there is dropped. A theme is renamed by replacing its property list in one step; that its folder
// follows is only for people who look.
#pragma once

#include "library/KeptThemes.h"
#include "library/PackageContents.h"
#include "theme/FolderLocks.h"

#include <QDateTime>
#include <QString>
#include <QStringList>

#include <memory>
#include <optional>
#include <vector>

/// What became of a change.
struct LibraryResult {
    enum class Outcome {
        Done,
        BadName,   // the new name cannot be one
        NameTaken, // by another theme
        NoSuchTheme,
        Failed // a file could not be read or written, or the library or contents are refused
    };
    Outcome outcome = Outcome::Failed;
    QString sentence; // for people, whatever the outcome
    QString name;     // of the theme as it is now; NameTaken: one that is free

    bool isDone() const { return outcome == Outcome::Done; }
};

/// Holds the library's lock from open() until it is destroyed, so keep it for one action only. Any
/// thread, one at a time. Where a WorkingCopyKeeper is needed as well, open that one first.
class ThemeLibrary
{
public:
    /// Locks the library and ends what a killed program has begun. May wait for another Tintloom:
    /// not for the main thread of a window. Creates nothing.
    static std::shared_ptr<ThemeLibrary> open(const QString &documents);

    /// Why the library may not be touched, for people; else empty. It then is as if it held no
    /// theme, and every change fails for that reason.
    const QString &refusal() const { return _refusal; }

    /// All of them, by name without regard to case. One that cannot be read is left out, with a log
    /// line. Of several with the same name, which only other programs can make, all but the first
    /// bear a number.
    std::vector<KeptTheme> themes() const;
    QStringList names() const;
    /// Without regard to case.
    std::optional<KeptTheme> find(const QString &name) const;

    struct Reading {
        std::optional<PackageContents> contents;
        LibraryResult result;
    };
    /// The whole package of a kept theme.
    Reading read(const QString &name) const;

    enum class IfTaken { Refuse, Replace };
    /// Keeps a package under a name, which it then bears. A theme that is replaced goes to the
    /// trash. The paths of its files are checked: refused as Failed where one leads elsewhere.
    LibraryResult keep(PackageContents contents, const QString &name, IfTaken ifTaken,
                       const QDateTime &now = QDateTime::currentDateTimeUtc());
    LibraryResult rename(const QString &name, const QString &newName);
    LibraryResult duplicate(const QString &name, const QString &newName);
    /// Into the trash, which is rid of what is too old first.
    LibraryResult remove(const QString &name,
                         const QDateTime &now = QDateTime::currentDateTimeUtc());
    /// Takes the theme of that name that was removed or replaced last out of the trash; under a
    /// name with a number where there is one of that name again.
    LibraryResult putBack(const QString &name,
                          const QDateTime &now = QDateTime::currentDateTimeUtc());

private:
    explicit ThemeLibrary(const QString &documents);
    bool findFolder();
    bool lock();
    bool lockToChange();
    void recover();
    void endChange();
    KeptThemes scan() const;
    static LibraryResult taken(const KeptThemes &scan, const QString &name);
    LibraryResult noSuchTheme(const QString &name) const;
    LibraryResult bringIn(const QString &from, const QString &folder,
                          const std::optional<KeptTheme> &old, const QDateTime &now);
    QString putName(const KeptTheme &theme, const QString &name);

    const QString _themes;
    QString _refusal;
    FolderLocks _locks;
};
