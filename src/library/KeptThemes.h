// The kept themes that stand in the library's folder now.
#pragma once

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

struct KeptTheme {
    QString name;
    QString folder; // its path
};

/// Only while the library is locked.
struct KeptThemes {
    std::vector<KeptTheme> themes; // by their folders; no two names are the same
    QStringList folders;           // names of all that is there
    QStringList skipped;           // those of them that are no themes, or cannot be read
    QString problem;               // why nothing could be listed, for people; else empty

    /// A missing folder is an empty one. What is skipped, the log names.
    static KeptThemes in(const QString &folder);

    std::optional<KeptTheme> find(const QString &name) const;
    /// As ThemeName::freeName.
    QString freeName(const QString &name) const;
    /// Why nobody can say whether there is a theme of that name, for people; else empty.
    QString problemWith(const QString &name) const;
};
