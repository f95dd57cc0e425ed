#include "platform/UISlider.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QQuickWindow>
#include <QSGRectangleNode>

#include <algorithm>
#include <cmath>
#include <functional>

namespace
{
constexpr double knobDiameter = 28.0;
constexpr double knobShadow = 2.0; // room for it on every side
constexpr double knobMargin = 1.0; // between the knob and the slider's end
constexpr double trackHeight = 2.0;
constexpr double trackMargin = 2.0;
constexpr int mouse = -1;

// The platform's own blue and grey.
const QColor minimumTrackColor(0, 122, 255);
const QColor maximumTrackColor(183, 183, 183);

QImage picture(QSizeF size, double scale, const std::function<void(QPainter &)> &draw)
{
    QImage picture((size * scale).toSize(), QImage::Format_ARGB32_Premultiplied);
    if (picture.isNull())
        return picture;
    picture.setDevicePixelRatio(scale);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    draw(painter);
    return picture;
}

/// One knob for all sliders, drawn anew when the scale is another.
const QImage &knobPixels(double scale)
{
    static QImage pixels;
    static double drawnFor = 0.0;
    if (drawnFor != scale) {
        drawnFor = scale;
        const QRectF knob(knobShadow, knobShadow, knobDiameter, knobDiameter);
        pixels = picture(knob.size() + 2.0 * QSizeF(knobShadow, knobShadow), scale,
                         [&](QPainter &painter) { UISlider::drawKnob(painter, knob); });
        pixels.setDevicePixelRatio(1.0);
    }
    return pixels;
}
} // namespace

UISlider::UISlider(QQuickItem *parent) : UIView(parent), _backing(this), _knob(this)
{
    setFlag(ItemHasContents);
    setAcceptTouchEvents(true);
    setAcceptedMouseButtons(Qt::LeftButton);
    setActiveFocusOnTab(true);
    _backing.setZ(-1.0); // below the track, which the slider paints itself
}

void UISlider::setMinimumValue(float value)
{
    _minimumValue = value;
    setValue(_value);
    placeKnob();
}

void UISlider::setMaximumValue(float value)
{
    _maximumValue = value;
    setValue(_value);
    placeKnob();
}

void UISlider::setValue(float value)
{
    value = value > _minimumValue ? value : _minimumValue; // not-a-number fails the comparison
    value = std::min(value, _maximumValue);
    if (value == _value)
        return;
    _value = value;
    placeKnob();
    emit valueChanged();
}

void UISlider::moveTo(float value)
{
    const float before = _value;
    setValue(value);
    if (_value != before)
        emit moved();
}

void UISlider::setBackgroundColor(const UIColor &color)
{
    _backgroundColor = color;
    polish();
}

// The knob's middle travels between the ends less half a knob and its margin.

float UISlider::valueAt(double knobMiddle) const
{
    const double end = knobDiameter * 0.5 + knobMargin;
    const double travel = width() - 2.0 * end;
    const double ratio = travel > 0.0 ? std::clamp((knobMiddle - end) / travel, 0.0, 1.0) : 0.0;
    return float(_minimumValue + ratio * (double(_maximumValue) - _minimumValue));
}

QRectF UISlider::knobRect() const
{
    const double range = double(_maximumValue) - _minimumValue;
    const double ratio = range > 0.0 ? (_value - _minimumValue) / range : 0.0;
    const double travel = std::max(width() - knobDiameter - 2.0 * knobMargin, 0.0);
    return {knobMargin + ratio * travel, (height() - knobDiameter) * 0.5, knobDiameter,
            knobDiameter};
}

void UISlider::placeKnob()
{
    // On whole pixels, where its edge stays sharp.
    const double scale = contentScale();
    const auto snapped = [&](double length) { return std::round(length * scale) / scale; };
    const QPointF corner = knobRect().topLeft() - QPointF(knobShadow, knobShadow);
    _knob.setPosition({snapped(corner.x()), snapped(corner.y())});
    update();
}

void UISlider::beginTracking(int holder, QPointF point)
{
    if (_holder)
        return;
    _holder = holder;
    // A page that scrolls must not take the finger away.
    setKeepMouseGrab(true);
    setKeepTouchGrab(true);
    const QRectF knob = knobRect();
    const bool isOnKnob = knob.contains(point);
    _grip = isOnKnob ? point.x() - knob.center().x() : 0.0;
    if (!isOnKnob)
        moveTo(valueAt(point.x()));
}

void UISlider::continueTracking(QPointF point)
{
    moveTo(valueAt(point.x() - _grip));
}

void UISlider::mousePressEvent(QMouseEvent *event)
{
    beginTracking(mouse, event->position());
}

void UISlider::mouseMoveEvent(QMouseEvent *event)
{
    if (_holder == mouse)
        continueTracking(event->position());
}

void UISlider::mouseReleaseEvent(QMouseEvent *event)
{
    mouseMoveEvent(event);
    mouseUngrabEvent();
}

void UISlider::mouseUngrabEvent()
{
    if (_holder == mouse)
        _holder.reset();
}

void UISlider::touchEvent(QTouchEvent *event)
{
    if (event->type() == QEvent::TouchCancel) {
        touchUngrabEvent();
        return;
    }
    for (const QEventPoint &point : event->points()) {
        if (point.state() == QEventPoint::Pressed)
            beginTracking(point.id(), point.position());
        else if (point.id() == _holder)
            continueTracking(point.position());
        if (point.id() == _holder && point.state() == QEventPoint::Released)
            _holder.reset();
    }
    event->accept();
}

void UISlider::touchUngrabEvent()
{
    if (_holder != mouse)
        _holder.reset();
}

void UISlider::step(int hundredths)
{
    moveTo(_value + float(hundredths) * (_maximumValue - _minimumValue) / 100.0f);
}

void UISlider::keyPressEvent(QKeyEvent *event)
{
    const int stride = event->modifiers() & Qt::ShiftModifier ? 10 : 1;
    switch (event->key()) {
    case Qt::Key_Left:
    case Qt::Key_Down:
        step(-stride);
        break;
    case Qt::Key_Right:
    case Qt::Key_Up:
        step(stride);
        break;
    case Qt::Key_PageDown:
        step(-10);
        break;
    case Qt::Key_PageUp:
        step(10);
        break;
    case Qt::Key_Home:
        moveTo(_minimumValue);
        break;
    case Qt::Key_End:
        moveTo(_maximumValue);
        break;
    default:
        event->ignore();
    }
}

void UISlider::layoutSubviews()
{
    UIView::layoutSubviews();
    placeKnob();
    polish();
}

double UISlider::contentScale() const
{
    return window() ? window()->effectiveDevicePixelRatio() : 1.0;
}

void UISlider::itemChange(ItemChange change, const ItemChangeData &data)
{
    if (change == ItemSceneChange || change == ItemDevicePixelRatioHasChanged) {
        _knob.setPixels({}, 1.0);
        placeKnob();
        polish();
    }
    UIView::itemChange(change, data);
}

void UISlider::updatePolish()
{
    const double scale = contentScale();
    _backing.setContents(picture(size(), scale, [this](QPainter &painter) {
        const QImage &pattern = _backgroundColor.patternImage();
        painter.fillRect(boundingRect(), _backgroundColor.qColor());
        painter.drawTiledPixmap(boundingRect(), QPixmap::fromImage(pattern));
        drawRect(painter, boundingRect());
    }));
    if (_knob.pixels().isNull())
        _knob.setPixels(knobPixels(scale), scale);
}

void UISlider::drawRect(QPainter &, const QRectF &)
{
}

void UISlider::drawKnob(QPainter &painter, const QRectF &rect)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    // Thin discs of shade, each a little wider than the one above it, sunk by half a point.
    for (const double reach : {1.5, 1.0, 0.5}) {
        painter.setBrush(QColor(0, 0, 0, 36));
        painter.drawEllipse(rect.translated(0.0, 0.5).adjusted(-reach, -reach, reach, reach));
    }
    painter.setBrush(Qt::white);
    painter.drawEllipse(rect);
    painter.restore();
}

QSGNode *UISlider::updatePaintNode(QSGNode *node, UpdatePaintNodeData *)
{
    if (!node) {
        node = new QSGNode;
        for (const QColor &color : {minimumTrackColor, maximumTrackColor}) {
            QSGRectangleNode *piece = window()->createRectangleNode();
            piece->setColor(color);
            node->appendChildNode(piece);
        }
    }
    const double middle = knobRect().center().x();
    const double top = (height() - trackHeight) * 0.5;
    const double end = width() - trackMargin;
    auto *left = static_cast<QSGRectangleNode *>(node->firstChild());
    left->setRect(trackMargin, top, std::max(middle - trackMargin, 0.0), trackHeight);
    auto *right = static_cast<QSGRectangleNode *>(node->lastChild());
    right->setRect(middle, top, std::max(end - middle, 0.0), trackHeight);
    return node;
}
