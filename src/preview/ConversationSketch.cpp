// The conversation: balloons between bar and composer, each laid out for the text size and cut to
// the corner style.
#include "preview/PreviewSketch.h"

#include <QTransform>

#include <algorithm>

using Corners = PreviewPalette::Corners;
using Weight = PreviewText::Weight;

namespace
{
constexpr double composerTop = 520.0;
constexpr double sideMargin = 16.0;     // from the screen's edge to a balloon, its tail between
constexpr double mostTextWidth = 206.0; // in a balloon
constexpr double besideText = 13.0;     // from a balloon's side to its text
constexpr double aboveText = 7.0;
constexpr double cornerReach = 9.0; // what of a balloon counts as its corner

/// A balloon's colours, the ink on it, and the first of the pair of elements that colour it.
struct Tint {
    PreviewInk balloon, text;
    PreviewElement first;
};
constexpr Tint green{PreviewInk::GreenBalloon, PreviewInk::GreenText,
                     PreviewElement::GreenBalloon1};
constexpr Tint blue{PreviewInk::BlueBalloon, PreviewInk::BlueText, PreviewElement::BlueBalloon1};
constexpr Tint gray{PreviewInk::GrayBalloon, PreviewInk::GrayText, PreviewElement::GrayBalloon1};

double radiusOf(Corners corners, double height)
{
    switch (corners) {
    case Corners::Round:
        return std::min(17.0, height / 2.0);
    case Corners::Soft:
        return 8.0;
    default:
        return 0.0;
    }
}

/// A balloon whose tail is at the bottom right.
QPainterPath balloonPath(const QRectF &rect, Corners corners, bool tail)
{
    const double radius = radiusOf(corners, rect.height());
    QPainterPath path;
    path.addRoundedRect(rect, radius, radius);
    if (!tail)
        return path;
    const double right = rect.right();
    const double bottom = rect.bottom();
    const double reach = std::max(radius, 9.0);
    QPainterPath tip(QPointF(right, bottom - reach));
    if (corners == Corners::Square)
        tip.lineTo(right + 6.0, bottom);
    else
        tip.cubicTo(right, bottom - reach * 0.5, right + 2.0, bottom - 2.0, right + 6.5, bottom);
    tip.lineTo(right - reach, bottom);
    tip.lineTo(right - reach, bottom - reach);
    tip.closeSubpath();
    return path.united(tip);
}

QPainterPath cornersOf(const QRectF &rect)
{
    QPainterPath path;
    for (const QPointF &corner :
         {rect.topLeft(), rect.topRight(), rect.bottomLeft(), rect.bottomRight()})
        path.addRect(corner.x() - cornerReach, corner.y() - cornerReach, 2.0 * cornerReach,
                     2.0 * cornerReach);
    return path;
}

/// Puts one thing below the other. It is run twice: to measure, and to place what was measured.
class Column
{
public:
    Column(const PreviewPalette &layout, double top) : _layout(layout), _y(top) {}

    double bottom() const { return _y; }
    PreviewSketch &sketch() { return _sketch; }

    void gap(double height) { _y += height; }

    void caption(PreviewInk ink, PreviewElement element, const QString &words, bool centered)
    {
        const auto text = PreviewText::laidOut(words, 12, Weight::Normal, 260.0, 1);
        const double left =
            centered ? (PreviewSketch::width - text.size.width()) / 2.0 : sideMargin + besideText;
        _sketch.text(ink, element, text, {left, _y});
        _y += text.size.height();
    }

    enum class Side { Left, Right };
    void balloon(Side side, const Tint &tint, const QString &words, bool tail)
    {
        const auto text =
            PreviewText::laidOut(words, _layout.textSize, Weight::Normal, mostTextWidth);
        const QSizeF size = text.size + QSizeF(2.0 * besideText, 2.0 * aboveText);
        const double right = PreviewSketch::width - sideMargin;
        const QRectF rect(QPointF(right - size.width(), _y), size);
        QPainterPath path = balloonPath(rect, _layout.corners, tail);
        QRectF place = rect;
        if (side == Side::Left) {
            path = QTransform(-1.0, 0.0, 0.0, 1.0, PreviewSketch::width, 0.0).map(path);
            place.moveLeft(sideMargin);
        }
        paint(tint, path, place);
        const QPointF topLeft = place.topLeft() + QPointF(besideText, aboveText);
        _sketch.text(tint.text, PreviewElement::BalloonText, text, topLeft);
        _sketch.effect(PreviewElement::MessageTextSize, linesOf(text, topLeft));
        _y += size.height();
    }

private:
    void paint(const Tint &tint, const QPainterPath &path, const QRectF &rect)
    {
        _sketch.fill(tint.balloon, path);
        _sketch.stroke(PreviewInk::BalloonEdge, path, 0.5);
        // Both colours go through the whole balloon, but the upper half is more the first one's.
        const QRectF whole = path.boundingRect();
        QRectF half(whole.topLeft(), QSizeF(whole.width(), whole.height() / 2.0));
        for (const int step : {0, 1}) {
            QPainterPath cut;
            cut.addRect(half);
            const auto element = PreviewElement(int(tint.first) + step);
            _sketch.target(element, path.intersected(cut));
            _sketch.effect(element, path);
            half.moveTop(half.bottom());
        }
        _sketch.area(PreviewElement::BalloonCorners, path.intersected(cornersOf(rect)));
    }

    const PreviewPalette &_layout;
    PreviewSketch _sketch;
    double _y;
};

void talk(Column &column)
{
    using enum Column::Side;
    const auto sender = [&column](const QString &name) {
        column.caption(PreviewInk::SenderName, PreviewElement::SenderName, name, false);
        column.gap(2.0);
    };
    const auto time = [&column](const QString &text) {
        column.caption(PreviewInk::Timestamp, PreviewElement::Timestamp, text, true);
    };
    time(PreviewWords::tr("Today 10:24"));
    column.gap(4.0);
    sender(PreviewWords::tr("Robin"));
    column.balloon(Left, gray, PreviewWords::tr("Lunch in the park?"), false);
    column.gap(3.0);
    column.balloon(Left, gray, PreviewWords::tr("I have a big blanket for all of us."), true);
    column.gap(8.0);
    column.balloon(
        Right, green,
        PreviewWords::tr("Great idea! I will bring lemonade, and the cake is in the oven."), true);
    column.gap(8.0);
    sender(PreviewWords::tr("Jamie"));
    column.balloon(Left, gray, PreviewWords::tr("See you at noon!"), true);
    column.gap(8.0);
    time(PreviewWords::tr("10:43"));
    column.gap(6.0);
    column.balloon(Right, blue, PreviewWords::tr("Cups are packed"), false);
    column.gap(3.0);
    column.balloon(Right, blue, PreviewWords::tr("On my way"), true);
}

void sketchComposer(PreviewSketch &sketch)
{
    const double bottom = PreviewSketch::height;
    const double middle = (composerTop + bottom) / 2.0;
    const QRectF bar(0.0, composerTop, PreviewSketch::width, bottom - composerTop);
    sketch.fill(PreviewInk::Composer, bar);
    sketch.fill(PreviewInk::ComposerEdge, QRectF(0.0, composerTop, PreviewSketch::width, 0.5));
    sketch.area(PreviewElement::ComposerBackground, bar);

    const QRectF field(10.0, middle - 17.0, 258.0, 34.0);
    QPainterPath rim;
    rim.addRoundedRect(field, 17.0, 17.0);
    sketch.fill(PreviewInk::Field, rim);
    sketch.stroke(PreviewInk::FieldEdge, rim, 0.75);
    const auto text =
        PreviewText::laidOut(PreviewWords::tr("Save me a seat"), 16, Weight::Normal, 220.0, 1);
    const QPointF topLeft(field.left() + 14.0, middle - text.size.height() / 2.0);
    sketch.text(PreviewInk::ComposerText, text, topLeft);
    const QRectF caret(topLeft.x() + text.size.width() + 3.0, middle - 9.0, 1.5, 18.0);
    sketch.fill(PreviewInk::ComposerText, caret, 0.75);
    const QRectF written = QRectF(topLeft, text.size).united(caret);
    sketch.area(PreviewElement::ComposerText, written.adjusted(-3.0, -1.0, 3.0, 1.0), 3.0);

    const QPointF center(PreviewSketch::width - 27.0, middle);
    QPainterPath button;
    button.addEllipse(center, 17.0, 17.0);
    sketch.fill(PreviewInk::SendButton, button);
    sketch.area(PreviewElement::SendButton, button);
    QPainterPath arrow(center + QPointF(0.0, 7.5));
    arrow.lineTo(center + QPointF(0.0, -7.5));
    arrow.moveTo(center + QPointF(-6.0, -1.5));
    arrow.lineTo(center + QPointF(0.0, -7.5));
    arrow.lineTo(center + QPointF(6.0, -1.5));
    sketch.stroke(PreviewInk::SendArrow, arrow, 2.5);
}
} // namespace

PreviewSketch sketchedConversation(const PreviewPalette &layout)
{
    const QRectF viewport(0.0, PreviewSketch::barBottom, PreviewSketch::width,
                          composerTop - PreviewSketch::barBottom);
    constexpr double margin = 10.0;
    Column measured(layout, 0.0);
    talk(measured);
    // A talk that is too long is scrolled to its end.
    Column column(
        layout, std::min(viewport.top() + margin, viewport.bottom() - margin - measured.bottom()));
    PreviewSketch &sketch = column.sketch();
    sketch.setViewport(viewport);
    sketch.fill(PreviewInk::Ground, QRectF(0.0, 0.0, PreviewSketch::width, PreviewSketch::height));
    sketch.area(PreviewElement::ConversationBackground, viewport);
    talk(column);

    sketch.setViewport({0.0, 0.0, PreviewSketch::width, PreviewSketch::height});
    sketchComposer(sketch);
    sketch.bar(PreviewWords::tr("Picnic"));
    const QPointF tip(13.0, (PreviewSketch::statusHeight + PreviewSketch::barBottom) / 2.0);
    QPainterPath back(tip + QPointF(8.0, -8.5));
    back.lineTo(tip);
    back.lineTo(tip + QPointF(8.0, 8.5));
    sketch.stroke(PreviewInk::BarText, back, 2.5);
    sketch.area(PreviewElement::NavigationTitle,
                QRectF(tip - QPointF(5.0, 14.0), QSizeF(22.0, 28.0)), 3.0);
    return sketch;
}
