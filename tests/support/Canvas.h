// A window that is drawn into an image at any scale, by the software renderer, when asked to.
#pragma once

#include <QCoreApplication>
#include <QImage>
#include <QQuickItem>
#include <QQuickRenderControl>
#include <QQuickRenderTarget>
#include <QQuickWindow>

class Canvas
{
public:
    /// `size` in points, `scale` in pixels per point.
    Canvas(QSize size, double scale)
        : _window(&_control), _picture(size * scale, QImage::Format_ARGB32_Premultiplied)
    {
        _picture.setDevicePixelRatio(scale);
        QQuickRenderTarget target = QQuickRenderTarget::fromPaintDevice(&_picture);
        target.setDevicePixelRatio(scale);
        _window.setRenderTarget(target);
        _window.setGeometry(QRect(QPoint(), size));
        _window.contentItem()->setSize(size);
        _window.setColor(Qt::transparent);
    }

    QQuickWindow &window() { return _window; }
    QQuickItem *contentItem() { return _window.contentItem(); }

    /// Draws what has changed, with no event loop in between. The picture's device pixel ratio is
    /// the scale.
    const QImage &draw()
    {
        _control.polishItems();
        _control.beginFrame();
        _control.sync();
        _control.render();
        _control.endFrame();
        return _picture;
    }

private:
    QQuickRenderControl _control;
    QQuickWindow _window;
    QImage _picture;
};
