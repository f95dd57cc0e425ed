// Installing a theme, a ready-made or a kept one: its package files are copied as they are, never
// generated.
//
// Like a save it has two steps, so that a window can empty folders on its queue and copy on the
// main thread; the command line does both in a row. Neither stops at a failure. The package is not
// rolled back; the working copy that is replaced stays as the earlier generation.
#pragma once

#include "library/ThemeLibrary.h"
#include "theme/ThemeLocations.h"
#include "theme/ThemePackageWriter.h"

#include <QString>

#include <memory>
#include <optional>

/// Everything that the copying needs, by value: it crosses from the queue to the main thread.
struct ThemeInstallation {
    ThemeLocations locations;
    QString source;             // the package's folder; a ready-made theme's may be missing
    bool asWorkingCopy = false; // its Info.plist, with its picture, becomes the working copy too
    SaveReport report;          // what the first step could not do
    std::shared_ptr<WorkingCopyKeeper> keeper; // shuts other programs out until the last copy dies
    std::optional<KeptTheme> kept;             // the source, if it is a kept theme
    std::shared_ptr<ThemeLibrary> library;     // which nobody else changes as long
};

/// First step of installing the theme `name`; any thread but a window's main one, because it may
/// wait for another Tintloom. Leaves an empty theme folder, or nothing touched with a refusal in
/// the report: when the keeper refuses, or when no folder can have that name.
ThemeInstallation beginInstalling(const QString &resources, const QString &name,
                                  const ThemeLocations &locations);

/// First step of sending it to the editor; the same, and leaves a working folder without
/// Info.plist, whose other files stay. Drop what this returns without copying, and the old working
/// copy is back.
ThemeInstallation beginEditing(const QString &resources, const QString &name,
                               const ThemeLocations &locations);

/// The same with a kept theme; refused where there is none of that name. Once it has been edited
/// without a failure, it is the one that the choices were made from.
ThemeInstallation beginInstallingKept(const QString &name, const ThemeLocations &locations);
ThemeInstallation beginEditingKept(const QString &name, const ThemeLocations &locations);

/// Second step: copies every entry of the package's folder, a folder before what is in it, and
/// opens each copy to everybody (0777). A failure is a target that then is absent, differs from its
/// source or could not be opened; a missing source is one as well. `written` names the files that
/// are right. Writes nothing where the theme folder is a symbolic link, or after a refusal. Once
/// for each installation.
SaveReport copyTheme(const ThemeInstallation &installation);
