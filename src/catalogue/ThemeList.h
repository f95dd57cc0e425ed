// The list of ready-made themes, `themes.plist` in the resource folder: an array of records, each a
// dictionary of strings.
//
//   section   title of the table's section
//   name      the row's title, and the name of the folder in the resource folder that holds the
//             ready-made package
//   details   the small line under the name
//   active    "Yes" when the theme can be chosen; anything else announces it for later
//
// The section "Custom" is special: its rows open the editor instead of installing something. The
// user's kept themes stand in the list as well, in a section of their own.
#pragma once

#include "library/KeptThemes.h"
#include "platform/foundation/TableSections.h"

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

struct ThemeRecord {
    QString section;
    QString name;
    QString details;
    bool active = false;
    bool kept = false;   // one of the user's own, which the library holds
    QString folder = {}; // of a kept one: its path

    bool isCustom() const { return !kept && section == QLatin1String("Custom"); }
    /// The row that stands for what the editor makes.
    bool isOwnTheme() const { return !kept && name == ownTheme(); }
    static QString ownTheme() { return QStringLiteral("Build Your Own!"); }
    /// It has a package in the resource folder, or will have one.
    bool isReadyMade() const { return !kept && !isCustom() && !isOwnTheme(); }
    static QString keptSection() { return QStringLiteral("My Themes"); }
    /// What stands under the name.
    QString subtitle() const;
    bool operator==(const ThemeRecord &) const = default;
};

class ThemeList
{
public:
    /// Never throws. A missing or unreadable list is an empty one; a record that is no dictionary,
    /// or has no section or name of type string, is left out and logged by its index.
    /// The kept themes stand in their section in the order given.
    static ThemeList load(const QString &resources, const std::vector<KeptTheme> &kept = {});
    /// The same from a list's bytes; the path is for messages.
    static ThemeList parse(const QByteArray &bytes, const QString &path,
                           const std::vector<KeptTheme> &kept = {});
    /// Other kept themes in place of those before. False when they are the same.
    bool setKept(const std::vector<KeptTheme> &kept);
    /// Why the list could not be read, for people; else empty.
    const QString &problem() const { return _problem; }

    /// Titles without regard to case, in the user's locale; those that compare equal by code units.
    int numberOfSections() const { return _sections.count(); }
    /// Indexes must be in range, here and below.
    const QString &titleForSection(int section) const { return _sections.title(section); }
    int numberOfRowsInSection(int section) const { return int(_sections.elements(section).size()); }
    /// In a section, records stand in the order of the file.
    const ThemeRecord &record(int section, int row) const;
    /// The first record of that name, or null.
    const ThemeRecord *find(const QString &name) const;
    /// Names of ready-made themes that can be installed.
    QStringList installableNames() const;

private:
    /// All records in the order of the table.
    std::vector<const ThemeRecord *> rows() const;
    void arrange();

    QString _problem;
    std::vector<ThemeRecord> _records; // in the order of the file, the kept ones last
    TableSections _sections;
};

/// Whether a folder in the resource folder can have that name.
bool isThemeFolderName(const QString &name);

/// Path of the folder that holds a theme's package, whether there is one or not. Nothing, and a log
/// line, when the name would lead out of the resource folder.
std::optional<QString> themeResourceFolder(const QString &resources, const QString &name);
