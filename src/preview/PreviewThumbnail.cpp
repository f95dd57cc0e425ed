#include "preview/PreviewThumbnail.h"

#include "preview/PreviewSketch.h"

#include <QPainter>

#include <cmath>

namespace
{
constexpr double side = previewThumbnailSide;
// Whole points, so that edges and lines are sharp at any density.
constexpr double barBottom = 7.0;
constexpr double balloonHeight = 7.0;
constexpr QColor rim(0, 0, 0, 64); // parts a light theme from a light row
constexpr double rimRadius = 6.0;

struct Balloon {
    PreviewInk ink;
    PreviewInk text;
    double left, right, top;
    double written; // how long the line in it is
};

constexpr Balloon balloons[] = {
    {PreviewInk::GrayBalloon, PreviewInk::GrayText, 3.0, 25.0, 9.0, 10.0},
    {PreviewInk::GreenBalloon, PreviewInk::GreenText, 8.0, 33.0, 18.0, 13.0},
    {PreviewInk::BlueBalloon, PreviewInk::BlueText, 12.0, 33.0, 27.0, 9.0},
};

double radiusOf(PreviewPalette::Corners corners)
{
    return corners == PreviewPalette::Corners::Square ? 0.0
           : corners == PreviewPalette::Corners::Soft ? 2.0
                                                      : balloonHeight / 2.0;
}

/// Writing is a line: letters of this size would be dust.
void addLine(PreviewSketch &sketch, PreviewInk ink, QPointF left, double length)
{
    sketch.fill(ink, QRectF(left.x(), left.y() - 0.5, length, 1.0), 0.5);
}

PreviewSketch sketchedThumbnail(PreviewPalette::Corners corners)
{
    PreviewSketch sketch;
    sketch.fill(PreviewInk::Ground, QRectF(0.0, 0.0, side, side));
    sketch.fill(PreviewInk::Bar, QRectF(0.0, 0.0, side, barBottom));
    sketch.fill(PreviewInk::BarEdge, QRectF(0.0, barBottom - 0.5, side, 0.5));
    addLine(sketch, PreviewInk::BarText, {12.0, barBottom / 2.0}, 12.0);
    for (const Balloon &balloon : balloons) {
        const QRectF rect(balloon.left, balloon.top, balloon.right - balloon.left, balloonHeight);
        QPainterPath path;
        path.addRoundedRect(rect, radiusOf(corners), radiusOf(corners));
        sketch.fill(balloon.ink, path);
        sketch.stroke(PreviewInk::BalloonEdge, path, 0.5);
        addLine(sketch, balloon.text, {balloon.left + 4.0, rect.center().y()}, balloon.written);
    }
    return sketch;
}
} // namespace

QImage previewThumbnail(const PreviewPalette &palette, double scale)
{
    const int pixels = int(std::lround(side * scale));
    QImage picture(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    if (picture.isNull())
        return picture;
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(pixels / side, pixels / side);
    const PreviewInks inks(palette, PreviewScreen::Conversation);
    const PreviewSketch sketch = sketchedThumbnail(palette.corners);
    for (const PreviewShape &shape : sketch.shapes())
        paintShape(painter, shape, inks[shape.ink]);
    const QRectF whole(0.0, 0.0, side, side);
    QPainterPath outline;
    outline.addRoundedRect(whole, rimRadius, rimRadius);
    QPainterPath corners = outline;
    corners.addRect(whole);
    // Not by clipping, which leaves steps.
    painter.setCompositionMode(QPainter::CompositionMode_DestinationOut);
    painter.fillPath(corners, Qt::black);
    painter.setCompositionMode(QPainter::CompositionMode_SourceAtop);
    painter.strokePath(outline, QPen(rim, 1.0)); // the half of it that lies inside
    return picture;
}
