#include "preview/PreviewSketch.h"

#include <QCoreApplication>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPathStroker>

namespace
{
QPainterPath pathOf(const QRectF &rect, double radius = 0.0)
{
    QPainterPath path;
    if (radius > 0.0)
        path.addRoundedRect(rect, radius, radius);
    else
        path.addRect(rect);
    return path;
}

QBrush brushOf(const PreviewFill &fill, const QRectF &bounds)
{
    const QColor top = QColor::fromRgba(fill.top);
    if (fill.top == fill.bottom)
        return top;
    QLinearGradient gradient(bounds.topLeft(), bounds.bottomLeft());
    gradient.setColorAt(0.0, top);
    gradient.setColorAt(1.0, QColor::fromRgba(fill.bottom));
    return gradient;
}
} // namespace

void paintShape(QPainter &painter, const PreviewShape &shape, const PreviewFill &fill)
{
    if (shape.glyphs.isEmpty()) {
        painter.fillPath(shape.path, brushOf(fill, shape.bounds));
        return;
    }
    painter.setPen(QColor::fromRgba(fill.top));
    for (const QGlyphRun &run : shape.glyphs)
        painter.drawGlyphRun(shape.origin, run);
}

void PreviewSketch::fill(PreviewInk ink, const QPainterPath &path)
{
    _shapes.push_back({ink, path, {}, {}, path.boundingRect()});
}

void PreviewSketch::fill(PreviewInk ink, const QRectF &rect, double radius)
{
    fill(ink, pathOf(rect, radius));
}

void PreviewSketch::stroke(PreviewInk ink, const QPainterPath &path, double lineWidth)
{
    QPainterPathStroker stroker;
    stroker.setWidth(lineWidth);
    stroker.setCapStyle(Qt::RoundCap);
    stroker.setJoinStyle(Qt::RoundJoin);
    fill(ink, stroker.createStroke(path));
}

void PreviewSketch::text(PreviewInk ink, const PreviewText &text, QPointF topLeft)
{
    // Slanted and tall letters reach out of their line.
    const double overhang = text.lines.empty() ? 0.0 : text.lines[0].height() / 4.0;
    const QRectF bounds =
        QRectF(topLeft, text.size).adjusted(-overhang, -overhang, overhang, overhang);
    _shapes.push_back({ink, {}, text.glyphs, topLeft, bounds});
}

void PreviewSketch::text(PreviewInk ink, PreviewElement element, const PreviewText &text,
                         QPointF topLeft)
{
    this->text(ink, text, topLeft);
    area(element, linesOf(text, topLeft));
}

void PreviewSketch::area(PreviewElement element, const QPainterPath &path)
{
    const QPainterPath seen =
        _viewport.contains(path.boundingRect()) ? path : path.intersected(pathOf(_viewport));
    if (!seen.isEmpty())
        _areas.push_back({element, seen, true});
}

void PreviewSketch::area(PreviewElement element, const QRectF &rect, double radius)
{
    area(element, pathOf(rect, radius));
}

void PreviewSketch::effect(PreviewElement element, const QPainterPath &path)
{
    const size_t before = _areas.size();
    area(element, path);
    if (_areas.size() > before)
        _areas.back().takesPoints = false;
}

void PreviewSketch::target(PreviewElement element, const QPainterPath &path)
{
    const size_t before = _areas.size();
    area(element, path);
    if (_areas.size() > before)
        _areas.back().isOutlined = false;
}

void PreviewSketch::bar(const QString &title)
{
    const QRectF rect(0.0, 0.0, width, barBottom);
    fill(PreviewInk::Bar, rect);
    fill(PreviewInk::BarEdge, QRectF(0.0, barBottom - 0.5, width, 0.5));
    area(PreviewElement::NavigationBar, rect);
    statusStrip();
    const auto text = PreviewText::laidOut(title, 17, PreviewText::Weight::Bold, 180.0, 1);
    const double middle = (statusHeight + barBottom) / 2.0;
    this->text(PreviewInk::BarText, PreviewElement::NavigationTitle, text,
               {(width - text.size.width()) / 2.0, middle - text.size.height() / 2.0});
}

void PreviewSketch::statusStrip()
{
    const double middle = statusHeight / 2.0;
    for (int step = 0; step < 4; ++step) {
        const double tall = 3.0 + 2.0 * step;
        fill(PreviewInk::BarMarks, QRectF(10.0 + 4.5 * step, middle + 4.5 - tall, 3.0, tall), 0.8);
    }
    const QString time = QCoreApplication::translate("PreviewScene", "10:45");
    const auto clock = PreviewText::laidOut(time, 12, PreviewText::Weight::Bold, 80.0, 1);
    text(PreviewInk::BarMarks, clock,
         {(width - clock.size.width()) / 2.0, middle - clock.size.height() / 2.0});
    const QRectF battery(width - 34.0, middle - 5.0, 21.0, 10.0);
    QPainterPath casing = pathOf(battery, 2.5);
    casing.addRoundedRect(battery.adjusted(1.0, 1.0, -1.0, -1.0), 1.7, 1.7); // a hole
    fill(PreviewInk::BarMarks, casing);
    fill(PreviewInk::BarMarks, QRectF(battery.left() + 2.0, battery.top() + 2.0, 12.0, 6.0), 0.8);
    fill(PreviewInk::BarMarks, QRectF(battery.right() + 1.0, middle - 2.0, 1.5, 4.0), 0.7);
}

QPainterPath linesOf(const PreviewText &text, QPointF topLeft)
{
    QPainterPath path;
    path.setFillRule(Qt::WindingFill); // where they overlap, they are one
    for (const QRectF &line : text.lines)
        path.addRoundedRect(line.translated(topLeft).adjusted(-3.0, -1.0, 3.0, 1.0), 3.0, 3.0);
    return path.simplified();
}
