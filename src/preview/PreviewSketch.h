// One screen of the scene as shapes: what is painted, and whose element it is.
//
// Shapes are painted in their order, each in one ink. Areas say where an element is: the last one
// that holds a point is on top there. The two are apart because they need not be the same: a
// balloon is painted once and belongs to five elements.
#pragma once

#include "preview/PreviewInks.h"
#include "preview/PreviewText.h"

#include <QCoreApplication>
#include <QPainterPath>

#include <vector>

class QPainter;

/// What a person writes and reads here says nothing of anybody, and is easy to translate.
struct PreviewWords {
    Q_DECLARE_TR_FUNCTIONS(PreviewScene)
};

struct PreviewShape {
    PreviewInk ink;
    QPainterPath path;       // to be filled; empty for text
    QList<QGlyphRun> glyphs; // drawn from the origin
    QPointF origin;
    QRectF bounds; // outside of which nothing is painted
};

/// One unit of the painter to a point. Text is the only thing that needs a QGuiApplication.
void paintShape(QPainter &painter, const PreviewShape &shape, const PreviewFill &fill);

struct PreviewArea {
    PreviewElement element;
    QPainterPath path;
    bool takesPoints = true; // a point finds the element here
    bool isOutlined = true;  // the element has its effect here
};

class PreviewSketch
{
public:
    static constexpr double width = 320.0; // points, like all lengths here
    static constexpr double height = 568.0;
    static constexpr double statusHeight = 20.0;
    static constexpr double barBottom = 64.0;

    const std::vector<PreviewShape> &shapes() const { return _shapes; }
    const std::vector<PreviewArea> &areas() const { return _areas; }

    void fill(PreviewInk ink, const QPainterPath &path);
    void fill(PreviewInk ink, const QRectF &rect, double radius = 0.0);
    /// A line of that width along the path, with round ends.
    void stroke(PreviewInk ink, const QPainterPath &path, double lineWidth);
    void text(PreviewInk ink, const PreviewText &text, QPointF topLeft);
    /// The same, with an area around each of its lines.
    void text(PreviewInk ink, PreviewElement element, const PreviewText &text, QPointF topLeft);

    void area(PreviewElement element, const QPainterPath &path);
    void area(PreviewElement element, const QRectF &rect, double radius = 0.0);
    /// An area that a point does not find.
    void effect(PreviewElement element, const QPainterPath &path);
    /// One that a point finds, of an element whose effect reaches further.
    void target(PreviewElement element, const QPainterPath &path);

    /// What scrolls is under the bars outside of this rectangle, and no area reaches there.
    void setViewport(const QRectF &viewport) { _viewport = viewport; }

    /// Status strip and navigation bar. What else is on the bar comes after it.
    void bar(const QString &title);

private:
    void statusStrip();

    std::vector<PreviewShape> _shapes;
    std::vector<PreviewArea> _areas;
    QRectF _viewport{0.0, 0.0, width, height};
};

/// Around each line of a text, as an area.
QPainterPath linesOf(const PreviewText &text, QPointF topLeft);

// Corners, text size and photos are the palette's; its colours play no part.
PreviewSketch sketchedConversation(const PreviewPalette &layout);
PreviewSketch sketchedMessageList(const PreviewPalette &layout);
