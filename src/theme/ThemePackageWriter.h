// The theme package: what biteSMS reads, and the working copy from which the next start restores.
//
// A save has two steps, so that a window can do the first on its save queue and the second on the
// main thread; the command line does both in a row.
#pragma once

#include "platform/PropertyList.h"
#include "theme/ElementDataSource.h"
#include "theme/ThemeLocations.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <system_error>
#include <vector>

/// What became of a save. A path stands in `failures` at most once, with the system's first reason.
struct SaveReport {
    struct Failure {
        QString path;
        QString reason;
    };
    QStringList written; // in the order of writing
    std::vector<Failure> failures;

    /// Ignored when the path already has a reason, or when the error is none.
    void addFailure(const QString &path, const std::error_code &error);
};

/// Everything the write step needs, by value: it crosses from the save queue to the main thread.
struct BuiltTheme {
    ThemeLocations locations;
    PropertyDictionary dictionary;
    QByteArray listBackground;  // JPEG
    QByteArray unreadIndicator; // JPEG
    SaveReport report;          // folders that could not be made
};

/// The theme dictionary: the fixed head, each element in document order, then the balloon arrays.
PropertyDictionary themeDictionary(const ElementDataSource &source);

/// The build step; any thread. Empties the package folder, drops the old working copy, builds the
/// dictionary and encodes both images at `scale` pixels per point.
BuiltTheme buildTheme(const ElementDataSource &source, const ThemeLocations &locations,
                      double scale);

/// The write step: writes the files, sets their permissions to 0777, logs permission faults. Does
/// not stop at a failure.
SaveReport writeTheme(const BuiltTheme &theme);
