// How the loupe looks. All lengths are points in the layer's coordinates: origin at the centre, y
// growing downward.

#include "HSColorPicker/window/BGHSLoupeLayer.h"

#include <QBitmap>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace
{
constexpr double pi = std::numbers::pi;
constexpr double clipRadius = 41.0;

constexpr double cellSide = 17.0;
// Samples lie 15 points apart and show 17 wide: a magnification of 17/15. The first lies 37 points
// up and left, so that the middle cell looks 7 points up and left of the selection, as on the
// phone.
constexpr double sampleSpacing = 15.0;
constexpr double firstSample = -37.0;
constexpr double gridStart = BGHSLoupeLayer::cellsPerSide * cellSide * -0.5;

constexpr int squaresPerSide = 6;
constexpr double squareSide = BGHSLoupeLayer::cellsPerSide * cellSide / squaresPerSide;

QColor white(double alpha)
{
    return QColor::fromRgbF(1.0f, 1.0f, 1.0f, float(alpha));
}

QPainterPath circle(QPointF centre, double radius)
{
    QPainterPath path;
    path.addEllipse(centre, radius, radius);
    return path;
}

// Angles in radians, growing clockwise to the eye because y grows downward; a painter path counts
// degrees, the other way round. Continues the path.
void addArc(QPainterPath &path, QPointF centre, double radius, double from, double sweep)
{
    const QRectF square(centre.x() - radius, centre.y() - radius, 2.0 * radius, 2.0 * radius);
    const double start = -from * 180.0 / pi;
    if (path.isEmpty())
        path.arcMoveTo(square, start);
    path.arcTo(square, start, -sweep * 180.0 / pi);
}

// White first and all over: squares drawn side by side would let their common edge shine through.
void drawCheckerboard(QPainter &painter)
{
    const double board = squaresPerSide * squareSide;
    painter.fillRect(QRectF(gridStart, gridStart, board, board), Qt::white);
    const QColor grey = QColor::fromRgbF(0.5f, 0.5f, 0.5f);
    for (int row = 0; row < squaresPerSide; ++row) {
        for (int column = 1 - row % 2; column < squaresPerSide; column += 2) {
            painter.fillRect(QRectF(gridStart + squareSide * column, gridStart + squareSide * row,
                                    squareSide, squareSide),
                             grey);
        }
    }
}

// Without antialiasing, for the same reason.
void drawCells(QPainter &painter, const auto &colors)
{
    painter.setRenderHint(QPainter::Antialiasing, false);
    for (int i = 0; i < int(colors.size()); ++i) {
        const int row = i / BGHSLoupeLayer::cellsPerSide;
        const int column = i % BGHSLoupeLayer::cellsPerSide;
        painter.fillRect(
            QRectF(gridStart + cellSide * column, gridStart + cellSide * row, cellSide, cellSide),
            colors[i]);
    }
}

// The shadow of a disc on the ground around it. A blur of 3 is a Gaussian of half that deviation;
// on an edge so much flatter than the blur is wide, it leaves the Gaussian's integral.
void drawShadow(QPainter &painter, const QPainterPath &ground, double radius, double alpha)
{
    constexpr double deviation = 1.5;
    constexpr double reach = 3.0 * deviation;
    constexpr int steps = 24;
    const QPointF offset(0.0, 3.0);
    QRadialGradient shadow(offset, radius + reach);
    for (int i = 0; i <= steps; ++i) {
        const double distance = reach * (2.0 * i / steps - 1.0);
        const double depth = 0.5 * std::erfc(distance / (deviation * std::numbers::sqrt2));
        shadow.setColorAt((radius + distance) / (radius + reach),
                          QColor::fromRgbF(0.0f, 0.0f, 0.0f, float(alpha * depth)));
    }
    shadow.setColorAt(1.0, Qt::transparent);
    painter.fillPath(ground, shadow);
}
} // namespace

const QPainterPath &BGHSLoupeLayer::gridCirclePath()
{
    if (_gridCirclePath.isEmpty())
        _gridCirclePath = circle({}, clipRadius);
    return _gridCirclePath;
}

BGHSLoupeLayer::CellColors BGHSLoupeLayer::cellColors() const
{
    const QPointF start = _colorPicker->selection() + QPointF(firstSample, firstSample);
    CellColors colors;
    for (int i = 0; i < int(colors.size()); ++i) {
        const QPoint cell(i % cellsPerSide, i / cellsPerSide);
        colors[i] = _colorPicker->colorAtPoint(start + QPointF(cell) * sampleSpacing).qColor();
    }
    return colors;
}

void BGHSLoupeLayer::drawInContext(QPainter &painter, const QRectF &bounds)
{
    painter.save();
    painter.translate(bounds.center());
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setClipPath(gridCirclePath(), Qt::IntersectClip);
    drawCheckerboard(painter);
    drawGridInContext(painter);
    painter.restore();
}

void BGHSLoupeLayer::drawGridInContext(QPainter &painter) const
{
    if (_colorPicker)
        drawCells(painter, cellColors());
}

void BGHSLoupeLayer::drawGlintInContext(QPainter &painter)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);

    // Between the top of a circle and a flatter arc below it, both short ways over the top.
    const float a = std::acos(0.95f);
    const float b = std::asin(std::sin(a) * 3.0f);
    QPainterPath crescent;
    addArc(crescent, {0.0, 106.25}, 127.5, a - pi / 2.0, -2.0 * a);
    addArc(crescent, {}, 42.5, -pi / 2.0 - b, 2.0 * b);
    crescent.closeSubpath();
    QLinearGradient above(0.0, -42.5, 0.0, std::sin(b - pi / 2.0) * 42.5);
    above.setColorAt(0.0, white(0.65));
    above.setColorAt(1.0, white(0.15));
    painter.fillPath(crescent, above);

    const QPointF centre(0.0, 34.0);
    QPainterPath disc; // nearly: the way round from 2/pi back to 0
    addArc(disc, centre, 34.0, 0.0, 2.0 / pi - 2.0 * pi);
    disc.closeSubpath();
    QRadialGradient below(centre, 34.0);
    below.setColorAt(0.0, white(0.5));
    below.setColorAt(1.0, white(0.0));
    painter.fillPath(disc, below);
    painter.restore();
}

QImage BGHSLoupeLayer::loupeImage()
{
    return rimPicture(_colorPicker ? _colorPicker->selectionColor().qColor() : QColor(Qt::black));
}

QImage BGHSLoupeLayer::rimPicture(const QColor &fill)
{
    QImage picture = emptyPicture();
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(side * 0.5, side * 0.5);

    const QPainterPath opening = circle({}, 41.5);
    QPainterPath ground = opening;
    ground.addRect(QRectF(side * -0.5, side * -0.5, side, side));
    drawShadow(painter, ground, 42.5, fill.alphaF());
    QPainterPath rim = opening;
    rim.addEllipse(QPointF(), 42.5, 42.5);
    painter.fillPath(rim, fill);

    painter.save();
    painter.setClipPath(gridCirclePath());
    drawGlintInContext(painter);
    painter.restore();

    // A white ring with a thin black edge on either side.
    painter.strokePath(gridCirclePath(), QPen(Qt::black, 3.0));
    painter.strokePath(gridCirclePath(), QPen(Qt::white, 2.0));
    // The middle cell's frame, half a point up and left of it, as on the phone: its lines fill
    // whole points there.
    painter.setPen(QPen(Qt::black, 1.0, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
    painter.drawRect(QRectF(-9.0, -9.0, cellSide, cellSide));
    return picture;
}

QImage BGHSLoupeLayer::emptyPicture() const
{
    const int pixels = int(std::ceil(side * _contentsScale));
    QImage picture(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    picture.setDevicePixelRatio(_contentsScale);
    picture.fill(Qt::transparent);
    return picture;
}

// The layer's coordinates in pixels, from the top left.
QTransform BGHSLoupeLayer::pixelTransform() const
{
    return QTransform::fromScale(_contentsScale, _contentsScale).translate(side * 0.5, side * 0.5);
}

void BGHSLoupeLayer::drawStaticParts()
{
    _ground = emptyPicture();
    QPainter painter(&_ground);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(side * 0.5, side * 0.5);
    painter.setClipPath(gridCirclePath());
    drawCheckerboard(painter);
    painter.end();
    _ground.setDevicePixelRatio(1.0);

    _circle = QRegion(QBitmap::fromImage(_ground.createAlphaMask())); // what it half covers
    _pane = _ground;
    _rim = rimPicture(Qt::black); // as on the phone, where no wheel is known yet when it is drawn
    _rim.setDevicePixelRatio(1.0);
    _pictures.fill(_ground);
    for (QImage &picture : _pictures)
        QPainter(&picture).drawImage(0, 0, _rim);
}

// This runs at every move of the finger: 25 plain rectangles and what is over them, and then the
// circle out of that. Painting into a circle would be shared out to threads, and to wake them takes
// longer than all the rest.
const QImage &BGHSLoupeLayer::pictureWithCells(const CellColors &colors)
{
    QPainter painter(&_pane);
    if (std::ranges::any_of(colors, [](const QColor &color) { return color.alpha() < 255; })) {
        painter.setCompositionMode(QPainter::CompositionMode_Source);
        painter.drawImage(0, 0, _ground);
        painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    }
    painter.setTransform(pixelTransform());
    drawCells(painter, colors);
    painter.resetTransform();
    painter.drawImage(0, 0, _rim);
    painter.end();

    std::swap(_pictures[0], _pictures[1]);
    for (const QRect &part : _circle)
        for (int y = part.top(); y <= part.bottom(); ++y)
            std::copy_n(reinterpret_cast<const QRgb *>(_pane.constScanLine(y)) + part.x(),
                        part.width(),
                        reinterpret_cast<QRgb *>(_pictures[0].scanLine(y)) + part.x());
    return _pictures[0];
}
