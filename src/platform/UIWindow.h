// The program's window: the stage, which is the phone's screen, with the root view controller's
// view on it, an action sheet over that, and alerts above all; and, where there is room for it, a
// pane beside the stage.
//
// While a sheet or an alert is up, everything below it and beside it takes neither touches nor
// keys. The window owns the engine that makes all views.
#pragma once

#include "platform/UIActionSheet.h"
#include "platform/UIAlertView.h"
#include "platform/UIViewController.h"
#include "platform/WindowLayout.h"

#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickWindow>

#include <functional>
#include <initializer_list>
#include <memory>
#include <vector>

class UIWindow : public QQuickWindow
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the program's start")
    Q_PROPERTY(UIAlertView *alert READ alert NOTIFY alertChanged FINAL)

public:
    /// A window of that size, in points, and of the main screen's, which follows the window's stage
    /// from then on; or one of just the main screen's size, whose width the stage then keeps.
    explicit UIWindow(std::optional<QSize> size = {});
    /// Tells the root view controller that the program ends, and lets it go.
    ~UIWindow() override;

    /// Lets another thread read QML files of the program, in that order, which the first page will
    /// need, and loads meanwhile the font that its first text would wait for.
    void readAhead(std::initializer_list<const char *> files);

    /// The window that was last made key, or null.
    static UIWindow *keyWindow();
    void makeKeyAndVisible();
    /// What the key window's first frame does not wait for: done when it has been shown, and after
    /// whatever is being done now, unless the context has gone until then.
    static void afterFirstFrame(QObject *context, std::function<void()> action);
    /// Says in the title what the window is at; empty: only the program.
    void setDocumentName(const QString &name);
    /// Says in the title whether something in the window has not been saved yet.
    void setDocumentEdited(bool isEdited);
    void setRootViewController(std::shared_ptr<UIViewController> controller);
    UIViewController *rootViewController() const { return _rootViewController.get(); }

    /// Lays a page over the root's view, which takes no input meanwhile, in place of an earlier
    /// one; null takes it away.
    void presentViewController(std::shared_ptr<UIViewController> controller);
    /// Takes the page away after whatever is being done now, such as a press of the page's own
    /// button; and then goes on.
    void dismissViewController(std::function<void()> then = {});
    UIViewController *presentedViewController() const { return _presented.get(); }

    /// What stands beside the stage where the window is wide enough. Its view is made when the
    /// window has shown its first frame.
    void setPaneViewController(std::shared_ptr<UIViewController> controller);
    UIViewController *paneViewController() const { return _pane.get(); }
    /// Whether the pane may be there; true unless set.
    void setPaneWanted(bool isWanted);
    bool isPaneWanted() const { return _isPaneWanted; }
    bool hasPane() const { return !_layout.pane.isEmpty(); }
    /// Whether it would be there if it were wanted.
    bool hasRoomForPane() const;

    /// The alert on top, or null.
    UIAlertView *alert() const { return _alerts.empty() ? nullptr : _alerts.back().get(); }
    void showAlert(std::unique_ptr<UIAlertView> alertView);

    /// The sheet that is up, or null.
    UIActionSheet *actionSheet() const { return _actionSheet.get(); }
    /// In place of a sheet that is still up, which goes unanswered.
    void showActionSheet(std::unique_ptr<UIActionSheet> actionSheet);

signals:
    void firstFrameShown();
    void alertChanged();
    /// It has come or gone.
    void paneChanged();
    void paneWantedChanged(bool isWanted);

protected:
    void resizeEvent(QResizeEvent *event) override;
    /// What no item has taken goes to the screen on top, unless something lies over it.
    void keyPressEvent(QKeyEvent *event) override;

private:
    void showTitle();
    WindowLayout layoutFor(bool wantsPane) const;
    /// The phone's screen is the stage: its size follows, whatever else the window has room for.
    void layOut();
    void loadPane();
    /// An item of the stage's size above it, drawn by a QML file.
    QQuickItem *addLayer(const char *file, const QVariantMap &properties, double z);
    void removeAlert(UIAlertView *alertView);
    void removeActionSheet();
    /// Gives the input to what is on top, and to nothing below that.
    void giveInputToTop();

    QQmlEngine _engine;
    std::vector<std::unique_ptr<QQmlComponent>> _readAhead;
    QString _documentName;
    bool _isDocumentEdited = false;
    QQuickItem *_dropTarget;                 // below everything else
    QQuickItem *_stage;                      // everything below sheets and alerts
    const std::optional<double> _stageWidth; // that was asked for
    WindowLayout _layout;
    std::shared_ptr<UIViewController> _rootViewController;
    std::shared_ptr<UIViewController> _presented;
    std::shared_ptr<UIViewController> _pane;
    bool _isPaneWanted = true;
    bool _hasShownFrame = false;
    std::vector<std::unique_ptr<UIAlertView>> _alerts;
    QQuickItem *_alertLayer = nullptr; // made for the first alert
    std::unique_ptr<UIActionSheet> _actionSheet;
    QQuickItem *_actionSheetLayer = nullptr; // while a sheet is up
};
