#include "views/ScreenOverlays.h"

#include "platform/QMLViews.h"
#include "platform/foundation/NSLog.h"

#include <QDesktopServices>
#include <QUrl>

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
    _loader = overlay("views/LoaderBox.qml", _view);
    emit loadingChanged();
}

void ScreenOverlays::removeLoader()
{
    takeAway(_loader);
    emit loadingChanged();
}

QQuickItem *ScreenOverlays::loadingItem(const char *name) const
{
    return _loader ? _loader->findChild<QQuickItem *>(name) : nullptr;
}

void ScreenOverlays::setNotice(const QString &notice, const QString &copyFrom)
{
    if (_notice == notice && _copyFrom == copyFrom)
        return;
    if (_strip && _strip->hasActiveFocus()) // the keyboard goes back to where it came from
        _strip->nextItemInFocusChain(false)->forceActiveFocus(Qt::BacktabFocusReason);
    takeAway(_strip);
    _notice = notice;
    _copyFrom = copyFrom;
    emit noticeChanged();
    const char *file = !notice.isEmpty()     ? "views/NoticeStrip.qml"
                       : !copyFrom.isEmpty() ? "views/FolderStrip.qml"
                                             : nullptr;
    if (file)
        _strip = overlay(file, _view->property("content").value<QQuickItem *>());
}

void ScreenOverlays::showFolder() const
{
    if (!QDesktopServices::openUrl(QUrl::fromLocalFile(_copyFrom)))
        NSLog("Nothing on this desktop shows the folder %@", {_copyFrom});
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

QQuickItem *ScreenOverlays::overlay(const char *file, QQuickItem *parent)
{
    QQuickItem *item = QMLViews::create(*_engine, file, {{"overlays", QVariant::fromValue(this)}});
    item->setParent(parent);
    item->setParentItem(parent);
    return item;
}
