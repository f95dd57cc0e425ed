#include "preview/PreviewText.h"

#include <QFontMetricsF>
#include <QTextLayout>

#include <algorithm>
#include <cmath>

namespace
{
/// Unhinted and grey-edged, so that text is the same at every scale and has no coloured fringes
/// that would change with the eyes.
QFont fontOf(int size, PreviewText::Weight weight)
{
    QFont font;
    font.setPixelSize(size);
    font.setWeight(weight == PreviewText::Weight::Bold ? QFont::Bold : QFont::Normal);
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setStyleStrategy(QFont::NoSubpixelAntialias);
    return font;
}

QTextOption wrapping()
{
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    option.setUseDesignMetrics(true);
    return option;
}

/// How much of the text stands in so many lines, and then an ellipsis.
QString shortened(const QString &text, const QFont &font, double width, int mostLines)
{
    QTextLayout layout(text, font);
    layout.setTextOption(wrapping());
    layout.beginLayout();
    int lastStart = 0;
    int lines = 0;
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        if (++lines > mostLines)
            break;
        lastStart = line.textStart();
    }
    layout.endLayout();
    if (lines <= mostLines)
        return text;
    return text.left(lastStart) +
           QFontMetricsF(font).elidedText(text.mid(lastStart), Qt::ElideRight, width - 1.0);
}
} // namespace

PreviewText PreviewText::laidOut(const QString &text, int fontSize, Weight weight, double width,
                                 int mostLines)
{
    const QFont font = fontOf(fontSize, weight);
    const double pitch = std::ceil(fontSize * 1.25);
    QTextLayout layout(shortened(text, font, width, mostLines), font);
    layout.setTextOption(wrapping());
    PreviewText made;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        const double top = pitch * double(made.lines.size());
        line.setPosition({0.0, top + (pitch - line.ascent() - line.descent()) / 2.0});
        const double used = std::min(std::ceil(line.naturalTextWidth()), width);
        made.lines.emplace_back(0.0, top, used, pitch);
        made.size = {std::max(made.size.width(), used), top + pitch};
    }
    layout.endLayout();
    made.glyphs = layout.glyphRuns();
    return made;
}
