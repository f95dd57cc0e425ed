#include "views/ScreenOverlays.h"

#include "platform/QMLViews.h"

ScreenOverlays::~ScreenOverlays()
{
    // At once: the items are bound to this object.
    delete _loadingView.release();
    delete _noticeStrip.release();
}

void ScreenOverlays::setView(QQuickItem *view, QQmlEngine *engine)
{
    _view = view;
    _engine = engine;
}

void ScreenOverlays::setFrames(const QRectF &loadingFrame, double noticeBottom)
{
    _loadingFrame = loadingFrame;
    _noticeBottom = noticeBottom;
    emit framesChanged();
}

void ScreenOverlays::showLoaderWithLabel(const QString &label)
{
    _loadingText = label;
    _loadingView = overlay("views/LoaderBox.qml");
    emit loadingChanged();
}

void ScreenOverlays::removeLoader()
{
    _loadingView.reset();
    emit loadingChanged();
}

void ScreenOverlays::setNotice(const QString &notice)
{
    if (_notice == notice)
        return;
    _notice = notice;
    emit noticeChanged();
    if (_notice.isEmpty())
        _noticeStrip.reset();
    else if (!_noticeStrip)
        _noticeStrip = overlay("views/NoticeStrip.qml");
}

void ScreenOverlays::TakeAway::operator()(QQuickItem *item) const
{
    item->setVisible(false);
    item->deleteLater();
}

ScreenOverlays::Overlay ScreenOverlays::overlay(const char *file)
{
    Overlay item(QMLViews::create(*_engine, file, {{"overlays", QVariant::fromValue(this)}}));
    item->setParent(_view);
    item->setParentItem(_view);
    return item;
}
