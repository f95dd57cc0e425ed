// What the themes of the catalogue look like: for each a palette, for the preview, and a small
// picture.
//
// A look is made from the theme's package when it is first asked for, on a queue, and kept: once
// for each theme and scale. Who asks never waits, and is told when there is something to see.
#pragma once

#include "platform/foundation/DispatchQueue.h"
#include "preview/PreviewPalette.h"

#include <QCache>
#include <QImage>
#include <QObject>
#include <QSet>

#include <memory>
#include <optional>

struct ThemeLook {
    /// Nothing for a theme that cannot be read.
    std::optional<PreviewPalette> palette;
    /// As previewThumbnail() makes it.
    QImage picture;
};

/// Main thread only; may die while a look is being made.
class ThemeLooks : public QObject
{
    Q_OBJECT

public:
    explicit ThemeLooks(QString resources);

    /// The look of the theme whose package is in that folder, its picture at so many pixels per
    /// point. An empty one as long as it is being made, and for good where there is nothing to see.
    ThemeLook look(const QString &folder, double scale);
    /// Themes below that folder may have changed. Their looks are made again when they are asked
    /// for; until then the old ones are better than none.
    void noteChangesBelow(const QString &folder);

signals:
    /// The theme in that folder can be seen now, at the scale that was asked for.
    void ready(const QString &folder);

private:
    using Key = std::pair<QString, double>;
    void make(const Key &key);
    void take(const Key &key, const ThemeLook &look);

    const QString _resources;
    QCache<Key, ThemeLook> _looks;
    QSet<Key> _beingMade;
    QSet<Key> _outdated;
    std::optional<DispatchQueue> _queue; // since there was something to make
    // Goes before the queue, which then only passes over what still waits.
    std::shared_ptr<void> _alive = std::make_shared<char>();
};
