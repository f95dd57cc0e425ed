// The theme package: what biteSMS reads, and the working copy from which the next start restores.
//
// A save has two steps, so that a window can do the first on its save queue and the second on the
// main thread; the command line does both in a row.
#pragma once

#include "platform/foundation/PropertyList.h"
#include "theme/ElementDataSource.h"
#include "theme/ElementPicture.h"
#include "theme/ThemeLocations.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <functional>
#include <memory>
#include <system_error>
#include <vector>

class WorkingCopyKeeper;

/// What became of a save. A path stands in `failures` at most once, with the system's first reason.
struct SaveReport {
    struct Failure {
        QString path;
        QString reason;
    };
    QStringList written; // in the order of writing
    std::vector<Failure> failures;
    QString refusal; // why nothing was touched, for people; else empty

    /// What a person should know, a line each: why nothing was touched, or what could not be
    /// written. Empty when all went well.
    QString notice() const;
    /// The folder that a whole theme has still to be copied from, onto the phone; else empty.
    QString copyFrom(const ThemeLocations &locations) const;
    /// Ignored when the path already has a reason, or when the error is none.
    void addFailure(const QString &path, const std::error_code &error);
};

/// Everything the write step needs, by value: it crosses from the save queue to the main thread.
struct BuiltTheme {
    ThemeLocations locations;
    PropertyDictionary dictionary;
    std::optional<ElementPicture> picture;     // behind the list, in place of a colour
    PropertyDictionary workingCopy;            // only with a picture: the dictionary and its entry
    QByteArray listBackground;                 // JPEG
    QByteArray unreadIndicator;                // JPEG
    SaveReport report;                         // folders that could not be made or emptied
    std::shared_ptr<WorkingCopyKeeper> keeper; // shuts other programs out until the last copy dies
};

/// The theme dictionary: the fixed head, each element in document order, then the balloon arrays.
PropertyDictionary themeDictionary(const ElementDataSource &source);

/// The build step; any thread but a window's main one, because it may wait for another Tintloom.
/// Empties the package folder, moves the old working copy aside, builds the dictionary and encodes
/// both images at `scale` pixels per point. `willSave` is called before anything is touched, unless
/// the save is refused. Drop what this returns without writing it, and the old working copy is
/// back.
BuiltTheme buildTheme(const ElementDataSource &source, const ThemeLocations &locations,
                      double scale, const std::function<void()> &willSave = {});
/// For who has opened the keeper of these locations already, to load under the same lock.
BuiltTheme buildTheme(const ElementDataSource &source, const ThemeLocations &locations,
                      double scale, std::shared_ptr<WorkingCopyKeeper> keeper,
                      const std::function<void()> &willSave = {});

/// The write step: writes the files, sets their permissions to 0777, logs permission faults. Does
/// not stop at a failure. A refused theme is not written. Once for each theme.
SaveReport writeTheme(const BuiltTheme &theme);
