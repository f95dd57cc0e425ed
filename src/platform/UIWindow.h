// The program's window: a white ground, the root view controller's view on it, and alerts above
// all.
//
// While an alert is up, everything below it takes neither touches nor keys. The window owns the
// engine that makes all views.
#pragma once

#include "platform/UIAlertView.h"
#include "platform/UIViewController.h"

#include <QQmlEngine>
#include <QQuickWindow>

#include <memory>
#include <vector>

class UIWindow : public QQuickWindow
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the program's start")
    Q_PROPERTY(UIAlertView *alert READ alert NOTIFY alertChanged FINAL)

public:
    /// A window of the main screen's size, which follows it from then on.
    UIWindow();
    /// Tells the root view controller that the program ends, and lets it go.
    ~UIWindow() override;

    /// The window that was last made key, or null.
    static UIWindow *keyWindow();
    void makeKeyAndVisible();
    void setRootViewController(std::shared_ptr<UIViewController> controller);
    UIViewController *rootViewController() const { return _rootViewController.get(); }

    /// The alert on top, or null.
    UIAlertView *alert() const { return _alerts.empty() ? nullptr : _alerts.back().get(); }
    void showAlert(std::unique_ptr<UIAlertView> alertView);

signals:
    void alertChanged();

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    void removeAlert(UIAlertView *alertView);

    QQmlEngine _engine;
    QQuickItem *_stage; // everything below alerts
    std::shared_ptr<UIViewController> _rootViewController;
    std::vector<std::unique_ptr<UIAlertView>> _alerts;
    QQuickItem *_alertLayer = nullptr; // made for the first alert
};
