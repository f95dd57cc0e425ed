// A person's picture in the place of a colour: what stands behind the message list.
//
// It is part of the element's choice. The record's value holds it, and it counts as long as the
// record's colour is its mean colour: whatever reads colours goes on working, and whatever changes
// the colour, by any way, takes the picture away with it. The bytes are in the choice itself and
// shared by all copies, so that snapshots have them on every thread and no step of the history can
// lose them.
#pragma once

#include "theme/ElementDataSource.h"

#include <QImage>

#include <optional>

struct ElementPicture {
    /// Larger pictures are kept smaller: pixels of the longer side.
    static constexpr int longestSide = 2560;
    static constexpr double mostZoom = 8.0;

    QByteArray jpeg; // the whole picture
    // What of it fills the phone's screen: the middle, from 0 to 1 of its width and height, and how
    // much larger than needed for that. Beyond the edges is never shown; other values are taken as
    // the nearest ones.
    double x = 0.5;
    double y = 0.5;
    double zoom = 1.0;

    bool operator==(const ElementPicture &) const = default;

    struct Reading;
    /// Of any file that is a picture. The problem names the file.
    static Reading read(const QString &path);
    /// The same from a file's bytes.
    static Reading parse(const QByteArray &bytes);

    /// That which a record shows, if it does.
    static std::optional<ElementPicture> of(const ElementRecord &record);
    /// That which a theme of these elements shows behind its list.
    static std::optional<ElementPicture> behindList(const ElementDataSource &elements);

    /// What to choose to show it. None where the bytes are no picture.
    std::optional<ElementChoice> choice() const;
    /// What is shown of it, of the screen's shape, stretched to so many pixels. Null where the
    /// bytes are no picture or memory is short. Each thread keeps the last few, for whoever asks
    /// again.
    QImage shown(QSize pixels) const;

    // For whoever places it by hand, many times a second.
    /// All of it, at most that many pixels on the longer side, in 32 bits each and opaque. Null as
    /// shown() is.
    QImage whole(int longerSide = longestSide) const;
    /// The same as shown() of a picture that has been made already.
    QImage shownOf(const QImage &whole, QSize pixels) const;
    /// Moved under the screen by parts of its width and height. The size is the whole picture's, at
    /// any scale.
    ElementPicture moved(QSize whole, double across, double down) const;
    /// Its zoom times that, as far as it goes.
    ElementPicture closer(QSize whole, double factor) const;

private:
    static std::optional<ElementPicture> fromMap(const QVariantMap &map);
    QSizeF partOf(QSizeF picture) const;
    QRectF placeIn(QSizeF picture) const;
};

struct ElementPicture::Reading {
    std::optional<ElementPicture> picture;
    QString problem; // why there is none, for people; else empty
};
