// Names that may have been meant by one that is not there.
#pragma once

#include <QString>
#include <QStringList>

/// Those of `names` that are a few slips away from `name`, nearest first, at most three.
/// Case does not count.
QStringList nearestNames(const QString &name, const QStringList &names);

/// The same in words, to follow what is wrong with the name of a theme.
QString nearestThemes(const QString &name, const QStringList &names);
