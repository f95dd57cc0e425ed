#include "preview/window/PreviewItem.h"

#include <QKeyEvent>
#include <QPainter>

#include <algorithm>
#include <utility>

namespace
{
constexpr double outlineWidth = 2.0; // points of the scene, twice: dark within light
} // namespace

PreviewItem::PreviewItem(QQuickItem *parent) : QQuickPaintedItem(parent)
{
    setAcceptedMouseButtons(Qt::LeftButton);
    setAcceptHoverEvents(true);
    setActiveFocusOnTab(true);
    setOpaquePainting(true);
}

void PreviewItem::setModel(PreviewModel *model)
{
    if (_model == model)
        return;
    if (_model)
        _model->disconnect(this);
    _model = model;
    connect(model, &PreviewModel::touched, this,
            [this](PreviewScreen screen, const QRegion &region) {
                if (screen != _screen)
                    return;
                _touched += region;
                _repainting.act();
            });
    connect(model, &PreviewModel::laidOut, this, [this] {
        update();
        emit partsChanged();
    });
    connect(model, &PreviewModel::eyesChanged, this, [this] { update(); });
    connect(model, &PreviewModel::attentionChanged, this, &PreviewItem::repaintOutlines);
    update();
    emit modelChanged();
    emit partsChanged();
}

void PreviewItem::setMessageList(bool isMessageList)
{
    _screen = isMessageList ? PreviewScreen::MessageList : PreviewScreen::Conversation;
    update();
    emit partsChanged();
}

QTransform PreviewItem::fromScene() const
{
    const QSizeF scene = PreviewScene::screenSize;
    return QTransform::fromScale(width() / scene.width(), height() / scene.height());
}

void PreviewItem::geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry)
{
    QQuickPaintedItem::geometryChange(newGeometry, oldGeometry);
    if (newGeometry.size() == oldGeometry.size())
        return;
    update();
    emit partsChanged();
}

void PreviewItem::repaint(const QRegion &region)
{
    update(
        fromScene().mapRect(QRectF(region.boundingRect())).toAlignedRect().adjusted(-1, -1, 1, 1));
}

void PreviewItem::repaintOutlines()
{
    if (!_model || size().isEmpty())
        return;
    constexpr double room = 2.0 * outlineWidth;
    const QRectF now = _model->scene().outline(_screen, outlined()).boundingRect();
    const QRectF before = std::exchange(_paintedOutlines, now);
    for (const QRectF &frame : {before, now})
        if (!frame.isEmpty())
            repaint(frame.adjusted(-room, -room, room, room).toAlignedRect());
}

QString PreviewItem::outlined() const
{
    return _focused.isEmpty() ? _model->attention() : _focused;
}

void PreviewItem::paint(QPainter *painter)
{
    if (!_model || size().isEmpty())
        return;
    const QRectF all({}, PreviewScene::screenSize);
    const auto draw = [&](QPainter &target) {
        target.setRenderHint(QPainter::Antialiasing);
        target.setTransform(fromScene(), true);
        const QRectF clip = target.hasClipping() ? target.clipBoundingRect() & all : all;
        _model->scene().paint(target, _screen, _model->palette(), clip.toAlignedRect());
        paintOutline(target, outlined());
    };
    if (_model->eyes() == Eyes::Normal)
        return draw(*painter);
    const QRectF touched = painter->hasClipping() ? painter->clipBoundingRect() : boundingRect();
    const QRect pixels = painter->transform().mapRect(touched).toAlignedRect();
    QImage picture(pixels.size(), QImage::Format_RGB32);
    QPainter picturePainter(&picture);
    picturePainter.translate(-pixels.topLeft());
    picturePainter.setTransform(painter->transform(), true);
    picturePainter.setClipRect(touched);
    draw(picturePainter);
    picturePainter.end();
    painter->save();
    painter->resetTransform();
    painter->drawImage(pixels.topLeft(), seenBy(_model->eyes(), picture));
    painter->restore();
}

void PreviewItem::paintOutline(QPainter &painter, const QString &key) const
{
    const QPainterPath outline = _model->scene().outline(_screen, key);
    if (outline.isEmpty())
        return;
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(Qt::white, 2.0 * outlineWidth));
    painter.drawPath(outline);
    painter.setPen(QPen(QColor(10, 96, 255), outlineWidth));
    painter.drawPath(outline);
}

QVariantList PreviewItem::parts() const
{
    QVariantList parts;
    if (!_model || size().isEmpty())
        return parts;
    for (const PreviewScene::Part &part : _model->scene().parts(_screen)) {
        parts.append(QVariantMap{{"key", part.key},
                                 {"name", _model->nameOf(part.key)},
                                 {"frame", fromScene().mapRect(part.outline.boundingRect())}});
    }
    return parts;
}

QString PreviewItem::keyAt(QPointF point) const
{
    return _model->scene().keyAt(_screen, fromScene().inverted().map(point)).value_or(QString());
}

void PreviewItem::hoverMoveEvent(QHoverEvent *event)
{
    _model->point(keyAt(event->position()));
}

void PreviewItem::hoverLeaveEvent(QHoverEvent *)
{
    _model->point({});
}

void PreviewItem::mousePressEvent(QMouseEvent *event)
{
    _pressed = keyAt(event->position());
    _model->point(_pressed); // where nothing hovers, too
}

void PreviewItem::mouseReleaseEvent(QMouseEvent *event)
{
    const QString key = keyAt(event->position());
    if (!key.isEmpty() && key == _pressed)
        _model->choose(key);
}

void PreviewItem::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Up:
    case Qt::Key_Left:
        return moveFocusBy(-1);
    case Qt::Key_Down:
    case Qt::Key_Right:
        return moveFocusBy(1);
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
        if (!event->isAutoRepeat())
            _model->choose(_focused);
        return;
    default:
        event->ignore();
    }
}

void PreviewItem::moveFocusBy(int parts)
{
    const auto all = _model->scene().parts(_screen);
    const auto found = std::ranges::find(all, _focused, &PreviewScene::Part::key);
    const auto now = found == all.end() ? (parts > 0 ? -1 : 0) : found - all.begin();
    const auto next = std::clamp<std::ptrdiff_t>(now + parts, 0, std::ssize(all) - 1);
    focusPart(all[size_t(next)].key);
}

void PreviewItem::focusPart(const QString &key)
{
    _focused = key;
    _model->point(key);
    repaintOutlines();
}

void PreviewItem::focusInEvent(QFocusEvent *event)
{
    QQuickPaintedItem::focusInEvent(event);
    if (event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason)
        moveFocusBy(1);
}

void PreviewItem::focusOutEvent(QFocusEvent *event)
{
    QQuickPaintedItem::focusOutEvent(event);
    focusPart({});
}
