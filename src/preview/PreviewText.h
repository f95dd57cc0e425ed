// Text of the scene, laid out once and drawn in any colour at any scale.
#pragma once

#include <QFont>
#include <QGlyphRun>
#include <QList>
#include <QRectF>
#include <QString>

#include <vector>

struct PreviewText {
    QList<QGlyphRun> glyphs;   // relative to the text's top left corner, like the lines
    std::vector<QRectF> lines; // as wide as what is in them, one below the other without gaps
    QSizeF size;               // of the lines together

    enum class Weight { Normal, Bold };
    /// Wraps at word boundaries, within a word only where it must. What does not fit into so many
    /// lines ends in an ellipsis. Sizes are in points; a line is 5/4 of the font's size high,
    /// whatever font the system has. Needs a QGuiApplication; belongs to the thread that made it.
    static PreviewText laidOut(const QString &text, int fontSize, Weight weight, double width,
                               int mostLines = 100);
};
