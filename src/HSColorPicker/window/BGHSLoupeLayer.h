// The magnifier that floats above the finger on the colour wheel: a round pane of 5 x 5 cells, each
// showing the wheel's colour at one of 25 points around the selection, in a glass rim.
//
// Coordinates, in points: the layer measures 97 x 97, its own origin lies at its centre, y grows
// downward. It hangs by the middle of its lower edge, which the wheel moves to the selection.
//
// What never changes is drawn once per scale: the pane's checkerboard, and the rim with shadow,
// highlights and the frame of the middle cell. The layer's picture is the one, the cells on it and
// the other on top. The pane is put together again only when a cell has taken another colour, in
// one of two pictures: the window still reads the other.
//
//   detached ---> appearing ----- 0.35 s -----> shown
//      ^              | disappear                 | disappear
//      |              v                           v
//      |      dismissal pending -- 0.35 s --> disappearing
//      +------------------- 0.1 s ----------------+
//
// appearInColorPicker leads to the start of "appearing" from everywhere.
#pragma once

#include "HSColorPicker/window/HSColorPickerView.h"
#include "platform/CALayer.h"

#include <QPainterPath>
#include <QPointer>
#include <QPropertyAnimation>
#include <QRegion>

#include <array>
#include <optional>

class BGHSLoupeLayer : public CALayer
{
    Q_OBJECT

public:
    static constexpr int cellsPerSide = 5;
    /// The layer's side, in points.
    static constexpr double side = 97.0;

    explicit BGHSLoupeLayer(QObject *parent = nullptr);
    ~BGHSLoupeLayer() override;

    /// Pixels per point; 1 when it is not above 0.
    void setContentsScale(double scale);
    double contentsScale() const { return _contentsScale; }

    /// Clips the pane; a circle of radius 41 around the origin unless set.
    const QPainterPath &gridCirclePath();
    void setGridCirclePath(const QPainterPath &path);

    /// The rim alone, at the contents' scale. The rim's fill shows the selected colour; without a
    /// wheel it is black.
    QImage loupeImage();
    /// The pane: what its cells show, over a checkerboard. `bounds` is where the layer lies on the
    /// painter, its middle the layer's origin. Without a wheel only the checkerboard is drawn.
    void drawInContext(QPainter &painter, const QRectF &bounds);
    /// The cells, with no clip and no ground. The painter's origin is the layer's.
    void drawGridInContext(QPainter &painter) const;
    /// The highlights: a bright crescent above, a soft light below. Origin as above.
    static void drawGlintInContext(QPainter &painter);

    /// Kept for whoever asks; nothing here reads it, as on the phone.
    QPointF loupeCenter() const { return _loupeCenter; }
    void setLoupeCenter(QPointF center) { _loupeCenter = center; }
    /// Null once the wheel is gone.
    HSColorPickerView *colorPicker() const { return _colorPicker; }
    void setColorPicker(HSColorPickerView *colorPicker) { _colorPicker = colorPicker; }

    /// Pops up on top of the wheel, from the beginning whatever went on before.
    void appearInColorPicker(HSColorPickerView &colorPicker);
    /// Shrinks away; while popping up, as soon as that has ended.
    void disappear() { disappearAnimated(true); }
    /// Without animation the loupe is gone at once, but a pop-up ends first, and then it shrinks,
    /// as on the phone.
    void disappearAnimated(bool animated);
    /// Told by the animations "cp_l_appear" and "cp_l_disappear", which are children of the layer
    /// under these names. `finished` is false when one was stopped before its end.
    void animationDidStop(const QAbstractAnimation &animation, bool finished);
    bool isReadyToDismiss() const { return _isReadyToDismiss; }
    bool isRunningInitialAnimation() const { return _isRunningInitialAnimation; }

    /// Looks at the wheel's colours before the next frame.
    void setNeedsDisplay() { polish(); }

protected:
    void updatePolish() override;

private:
    using CellColors = std::array<QColor, cellsPerSide * cellsPerSide>;

    CellColors cellColors() const;
    QImage rimPicture(const QColor &fill);
    QImage emptyPicture() const;
    QTransform pixelTransform() const;
    void dropStaticParts();
    void drawStaticParts();
    const QImage &pictureWithCells(const CellColors &colors);
    void prepareAnimation(QPropertyAnimation &animation, const QString &name, int milliseconds);
    void removeAllAnimations();

    QPointer<HSColorPickerView> _colorPicker;
    QPainterPath _gridCirclePath;
    QPointF _loupeCenter;
    bool _isReadyToDismiss = false;
    bool _isRunningInitialAnimation = false;

    double _contentsScale = 1.0;
    double _transformScale = 1.0; // what holds while no animation overrides it
    QPropertyAnimation _appear;
    QPropertyAnimation _disappear;

    // In pixels, made for the contents' scale.
    QImage _ground;  // the checkerboard within the circle
    QRegion _circle; // in whole pixels; the rim covers its rough edge
    QImage _rim;
    QImage _pane;                    // cells and rim; only what is in the circle counts
    std::array<QImage, 2> _pictures; // the last one shown, and the one before
    std::optional<CellColors> _shownColors;
};
