#include "views/ScreenOverlays.h"

#include "platform/QMLViews.h"

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
    Q_ASSERT(!isLoading());
    _loadingText = label;
    _loadingView = overlay("views/LoaderBox.qml");
    emit loadingChanged();
}

void ScreenOverlays::removeLoader()
{
    takeAway(_loadingView);
    emit loadingChanged();
}

void ScreenOverlays::setNotice(const QString &notice)
{
    if (_notice == notice)
        return;
    _notice = notice;
    emit noticeChanged();
    if (_notice.isEmpty())
        takeAway(_noticeStrip);
    else if (!_noticeStrip)
        _noticeStrip = overlay("views/NoticeStrip.qml");
}

void ScreenOverlays::setCovered(bool covered)
{
    if (_isCovered == covered)
        return;
    _isCovered = covered;
    emit coveredChanged();
}

// It may be taken away by a tap on itself, so it outlives the tap.
void ScreenOverlays::takeAway(QPointer<QQuickItem> &item)
{
    if (!item)
        return;
    item->setVisible(false);
    item->deleteLater();
    item.clear();
}

QQuickItem *ScreenOverlays::overlay(const char *file)
{
    Q_ASSERT(_view && _engine);
    QQuickItem *item = QMLViews::create(*_engine, file, {{"overlays", QVariant::fromValue(this)}});
    item->setParent(_view);
    item->setParentItem(_view);
    return item;
}
