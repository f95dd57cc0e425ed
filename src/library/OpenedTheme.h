// Opening a theme that somebody else made: nothing of it is trusted, and nothing of it is lost.
//
// It comes as a package's folder, as its Info.plist alone, as a zip or tar.gz archive of such a
// folder, or as shared text. The package is where the one Info.plist is that lies least deep. What
// goes beyond PackageLimits is refused before anything is decoded, and the sentence names the file.
#pragma once

#include "archives/ArchiveModule.h"
#include "library/PackageContents.h"
#include "theme/ElementDataSource.h"

#include <QStringList>

#include <optional>

struct OpenedTheme {
    /// What it calls itself, else what its folder or file is called; one line of at most 80
    /// characters.
    QString name;
    /// As they were found, pictures too; but for strange values. Balloons that are there only as
    /// arrays have come to stand under their elements' keys as well.
    PackageContents contents;
    int elements = 0;         // that have a value
    int listed = 0;           // elements that there are
    QStringList unknownKeys;  // kept
    QStringList unknownFiles; // kept
    QStringList strangeKeys;  // known ones whose values were of a type that they cannot have; gone
    QStringList besides;      // files of the archive outside the package; gone

    /// What a person should know before keeping it, a sentence each.
    QStringList remarks() const;
};

struct ThemeOpening {
    std::optional<OpenedTheme> theme;
    QString problem; // why there is none, a clause for people; else empty
};

/// The file of a package that cannot be one of PackageContents' other files.
inline QString packageInfoName()
{
    return QStringLiteral("Info.plist");
}
/// Whether a save makes the file, a picture.
bool isMadePicture(const QString &path);

/// Any thread.
class ThemeOpener
{
public:
    /// By this list's elements, whatever is chosen in it, a theme is judged.
    explicit ThemeOpener(const ElementDataSource &list);

    /// A folder, or a file that holds any of the other forms.
    ThemeOpening fromPath(const QString &path) const;
    /// A file's bytes; its form is found from them alone. The name is for a theme without one.
    ThemeOpening fromBytes(const QByteArray &bytes, const QString &name) const;
    ThemeOpening fromText(const QString &text) const;

private:
    ThemeOpening fromEntries(std::vector<ArchiveEntry> entries, const QString &name) const;
    void judge(const PropertyDictionary &info, OpenedTheme &theme) const;
    void judgeEntry(const QString &key, const QVariant &value, OpenedTheme &theme) const;

    struct Known {
        bool isElement = false;
        bool takesText = false, takesNumber = false, takesBoolean = false, takesArray = false;

        bool fits(const QVariant &value) const;
    };
    QHash<QString, Known> _known;
    QStringList _balloons; // two keys of elements for each array
};

/// The package that is kept of an opened theme: what a save would make of its elements, `made`,
/// with everything over it that the opened one holds beside them.
PackageContents completedPackage(const OpenedTheme &opened, PackageContents made);
