#include "views/ScreenOverlays.h"

#include "platform/QMLViews.h"
#include "platform/foundation/NSLog.h"

#include <QDesktopServices>
#include <QUrl>

void ScreenOverlays::setView(ScreenPage &page, QQmlEngine &engine)
{
    _page = &page;
    _engine = &engine;
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
    _loader = qobject_cast<LoaderPage *>(overlay("views/LoaderBox.qml", _page));
    emit loadingChanged();
}

void ScreenOverlays::removeLoader()
{
    takeAway(std::exchange(_loader, nullptr));
    emit loadingChanged();
}

void ScreenOverlays::setNotice(const QString &notice)
{
    if (_notice == notice && _quietText.isEmpty())
        return;
    _notice = notice;
    _quietText.clear();
    _quietActions.clear();
    replaceStrip(notice.isEmpty() ? nullptr : "views/NoticeStrip.qml");
}

void ScreenOverlays::showQuietly(const QString &text, Actions actions)
{
    _notice.clear();
    _quietText = text;
    _quietActions = std::move(actions);
    replaceStrip("views/QuietStrip.qml");
}

void ScreenOverlays::replaceStrip(const char *file)
{
    if (_strip && _strip->hasActiveFocus()) // the keyboard goes back to where it came from
        _strip->nextItemInFocusChain(false)->forceActiveFocus(Qt::BacktabFocusReason);
    takeAway(std::exchange(_strip, nullptr));
    emit noticeChanged();
    if (file)
        _strip = overlay(file, _page->content);
}

QStringList ScreenOverlays::quietActions() const
{
    QStringList titles;
    for (const Action &action : _quietActions)
        titles.append(action.title);
    return titles;
}

void ScreenOverlays::performQuietAction(int index)
{
    const auto perform = _quietActions.at(std::size_t(index)).perform; // it may replace the strip
    perform();
}

void ScreenOverlays::showOutcome(const QString &notice, const QString &copyFrom)
{
    setNotice(notice);
    if (!notice.isEmpty() || copyFrom.isEmpty())
        return;
    const auto showFolder = [copyFrom] {
        if (!QDesktopServices::openUrl(QUrl::fromLocalFile(copyFrom)))
            NSLog("Nothing on this desktop shows the folder %@", {copyFrom});
    };
    showQuietly(tr("Your theme is the folder Tintloom in\n%1\nCopy it onto the phone, into\n"
                   "/var/mobile/Library/biteThemes")
                    .arg(copyFrom),
                {{tr("Show Folder"), showFolder}});
}

// It may be taken away by a tap on itself, so it outlives the tap.
void ScreenOverlays::takeAway(QQuickItem *item)
{
    if (!item)
        return;
    item->setVisible(false);
    item->deleteLater();
}

QQuickItem *ScreenOverlays::overlay(const char *file, QQuickItem *parent)
{
    Q_ASSERT(_page && _engine);
    QQuickItem *item = QMLViews::create(*_engine, file, {{"overlays", QVariant::fromValue(this)}});
    item->setParent(parent);
    item->setParentItem(parent);
    return item;
}
