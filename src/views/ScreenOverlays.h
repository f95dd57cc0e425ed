// What a screen lays over everything else on it: the busy box while something is going on, and a
// strip that says what came of it: in red, what could not be written; quietly, where a theme is
// that has still to be copied onto the phone.
//
// The screen decides when and where; the QML files beside this one draw. Main thread only.
#pragma once

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
    Q_PROPERTY(QString copyFrom READ copyFrom NOTIFY noticeChanged FINAL)
    Q_PROPERTY(QRectF loadingFrame READ loadingFrame NOTIFY framesChanged FINAL)
    Q_PROPERTY(double noticeBottom READ noticeBottom NOTIFY framesChanged FINAL)

public:
    /// Make it a child of the screen's controller: what it shows is bound to it, so it must outlive
    /// the view.
    explicit ScreenOverlays(QObject *parent) : QObject(parent) {}

    /// Both must be set before anything is shown. The strip goes into the view's "content", and
    /// takes input when that does.
    void setView(QQuickItem *view, QQmlEngine *engine);
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
    QQuickItem *loadingView() const { return loadingItem("_loadingView"); }
    QQuickItem *loadingLabel() const { return loadingItem("_loadingLabel"); }
    QQuickItem *spinningIndicator() const { return loadingItem("_spinningIndicator"); }

    /// Lines for people, or else the folder that a theme is to be copied from; a strip is up while
    /// there is either. With both it shows the lines.
    void setNotice(const QString &notice, const QString &copyFrom = {});
    QString notice() const { return _notice; }
    QString copyFrom() const { return _copyFrom; }
    Q_INVOKABLE void dismissNotice() { setNotice({}); }
    /// Shows the folder in the desktop's file manager.
    Q_INVOKABLE void showFolder() const;

signals:
    void loadingChanged();
    void noticeChanged();
    void framesChanged();

private:
    /// A new item above everything in `parent`, which owns it.
    QQuickItem *overlay(const char *file, QQuickItem *parent);
    QQuickItem *loadingItem(const char *name) const;
    static void takeAway(QPointer<QQuickItem> &item);

    QQuickItem *_view = nullptr;
    QQmlEngine *_engine = nullptr;
    QRectF _loadingFrame;
    double _noticeBottom = 0.0;
    QString _loadingText;
    QPointer<QQuickItem> _loader; // while it is up
    QString _notice;
    QString _copyFrom;
    QPointer<QQuickItem> _strip; // while there is something to say
};
