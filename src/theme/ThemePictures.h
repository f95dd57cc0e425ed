// The two pictures of a theme package, each filled with one colour of the theme, or the first with
// a picture that a person has chosen.
#pragma once

#include "theme/ElementDataSource.h"

#include <QByteArray>

struct ThemePictures {
    QByteArray listBackground;  // JPEG, 640 x 1136 points
    QByteArray unreadIndicator; // JPEG, 24 x 24 points

    /// The elements whose colours fill them.
    static QString listBackgroundKey(const ElementDataSource &source)
    {
        return source.imageObjects().first();
    }
    static QString unreadIndicatorKey() { return QStringLiteral("unread-indicator-image"); }

    /// Of the source's theme dictionary, at so many pixels per point. Empty where memory is short.
    static ThemePictures of(const ElementDataSource &source, const PropertyDictionary &dictionary,
                            double scale);
};
