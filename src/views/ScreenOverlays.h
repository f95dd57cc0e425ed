// What a screen lays over everything else on it: the busy box while something is going on, and a
// strip: in red, it says what could not be written; quietly, what a person may want to know or do
// next, with buttons for that.
//
// The screen decides when and where; the QML files beside this one draw. Main thread only.
#pragma once

#include "views/Action.h"
#include "views/LoaderPage.h"
#include "views/ScreenPage.h"

#include <QObject>
#include <QPointer>
#include <QQmlEngine>
#include <QQuickItem>
#include <QRectF>

class ScreenOverlays : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Belongs to the screen that it lies over")
    Q_PROPERTY(bool loading READ isLoading NOTIFY loadingChanged FINAL)
    Q_PROPERTY(QString loadingText READ loadingText NOTIFY loadingChanged FINAL)
    Q_PROPERTY(QString notice READ notice NOTIFY noticeChanged FINAL)
    Q_PROPERTY(QString quietText READ quietText NOTIFY noticeChanged FINAL)
    Q_PROPERTY(QStringList quietActions READ quietActions NOTIFY noticeChanged FINAL)
    Q_PROPERTY(QRectF loadingFrame READ loadingFrame NOTIFY framesChanged FINAL)
    Q_PROPERTY(double noticeBottom READ noticeBottom NOTIFY framesChanged FINAL)

public:
    /// Make it a child of the screen's controller: what it shows is bound to it, so it must outlive
    /// the view.
    explicit ScreenOverlays(QObject *parent) : QObject(parent) {}

    /// Both must be set before anything is shown. The strip goes into the page's content, and
    /// takes input when that does.
    void setView(ScreenPage &page, QQmlEngine &engine);
    /// Points, in the view: the busy box, and the y that a strip stands on.
    void setFrames(const QRectF &loadingFrame, double noticeBottom);
    QRectF loadingFrame() const { return _loadingFrame; }
    double noticeBottom() const { return _noticeBottom; }

    /// The box swallows every touch of the view while it is up.
    void showLoaderWithLabel(const QString &label);
    void removeLoader();
    bool isLoading() const { return !_loader.isNull(); }
    QString loadingText() const { return _loadingText; }
    /// The box, its text and its spinner; null while it is not up.
    QQuickItem *loadingView() const { return _loader ? _loader->loadingView : nullptr; }
    QQuickItem *loadingLabel() const { return _loader ? _loader->loadingLabel : nullptr; }
    QQuickItem *spinningIndicator() const { return _loader ? _loader->spinningIndicator : nullptr; }

    /// Lines for people; the red strip is up while there are any, in place of a quiet one.
    void setNotice(const QString &notice);
    QString notice() const { return _notice; }
    /// The quiet strip, in place of any other: a text, and what can be done about it. It stays
    /// until it is dismissed.
    void showQuietly(const QString &text, Actions actions);
    QString quietText() const { return _quietText; }
    /// Their titles.
    QStringList quietActions() const;
    Q_INVOKABLE void performQuietAction(int index);
    Q_INVOKABLE void dismissNotice() { setNotice({}); }

    /// What came of a save: the lines where there are any, or else, quietly, where the theme is
    /// that has still to be copied onto the phone; nothing where that folder is empty, too.
    void showOutcome(const QString &notice, const QString &copyFrom);

signals:
    void loadingChanged();
    void noticeChanged();
    void framesChanged();

private:
    /// A new item above everything in `parent`, which owns it.
    QQuickItem *overlay(const char *file, QQuickItem *parent);
    static void takeAway(QQuickItem *item);
    void replaceStrip(const char *file);

    ScreenPage *_page = nullptr;
    QQmlEngine *_engine = nullptr;
    QRectF _loadingFrame;
    double _noticeBottom = 0.0;
    QString _loadingText;
    QPointer<LoaderPage> _loader; // while it is up
    QString _notice;
    QString _quietText;
    Actions _quietActions;
    QPointer<QQuickItem> _strip; // while there is something to say
};
