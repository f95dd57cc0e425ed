// What a screen lays over everything else on it: the busy box while something is going on, and the
// strip that says what could not be written.
//
// The screen decides when and where; the two QML files beside this one draw. Main thread only.
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
    Q_PROPERTY(bool covered READ isCovered WRITE setCovered NOTIFY coveredChanged FINAL)
    Q_PROPERTY(QString notice READ notice NOTIFY noticeChanged FINAL)
    Q_PROPERTY(QRectF loadingFrame READ loadingFrame NOTIFY framesChanged FINAL)
    Q_PROPERTY(double noticeBottom READ noticeBottom NOTIFY framesChanged FINAL)

public:
    /// Make it a child of the screen's controller: what it shows is bound to it, so it must outlive
    /// the view.
    explicit ScreenOverlays(QObject *parent) : QObject(parent) {}

    /// Both must be set before anything is shown.
    void setView(QQuickItem *view, QQmlEngine *engine);
    /// Points, in the view: the busy box, and the y that the strip stands on.
    void setFrames(const QRectF &loadingFrame, double noticeBottom);
    QRectF loadingFrame() const { return _loadingFrame; }
    double noticeBottom() const { return _noticeBottom; }

    /// The box swallows every touch of the view while it is up.
    void showLoaderWithLabel(const QString &label);
    void removeLoader();
    bool isLoading() const { return !_loadingView.isNull(); }
    QString loadingText() const { return _loadingText; }

    /// Lines for people; the strip is up while there are any.
    void setNotice(const QString &notice);
    QString notice() const { return _notice; }
    Q_INVOKABLE void dismissNotice() { setNotice({}); }

    /// While something lies over the whole screen, and over the strip too, that takes no input.
    bool isCovered() const { return _isCovered; }
    void setCovered(bool covered);

signals:
    void loadingChanged();
    void coveredChanged();
    void noticeChanged();
    void framesChanged();

private:
    /// A new item above everything in the view, which owns it.
    QQuickItem *overlay(const char *file);
    static void takeAway(QPointer<QQuickItem> &item);

    QQuickItem *_view = nullptr;
    QQmlEngine *_engine = nullptr;
    QRectF _loadingFrame;
    double _noticeBottom = 0.0;
    QString _loadingText;
    QPointer<QQuickItem> _loadingView; // while the loader is up
    bool _isCovered = false;
    QString _notice;
    QPointer<QQuickItem> _noticeStrip; // while there is a notice
};
