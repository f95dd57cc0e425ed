#include "platform/UIWindow.h"

#include "platform/QMLViews.h"
#include "platform/UIScreen.h"

#include <QResizeEvent>

#include <algorithm>

namespace
{
UIWindow *theKeyWindow = nullptr;
} // namespace

UIWindow::UIWindow() : _stage(new QQuickItem(contentItem()))
{
    QMLViews::prepareEngine(_engine);
    setColor(Qt::white);
    resize(UIScreen::mainScreen().size().toSize());
    _stage->setFlag(QQuickItem::ItemIsFocusScope);
    _stage->setFocus(true);
    _stage->setSize(size());
}

UIWindow::~UIWindow()
{
    if (_rootViewController)
        _rootViewController->prepareForTermination();
    delete _alertLayer;
    _rootViewController.reset();
    if (theKeyWindow == this)
        theKeyWindow = nullptr;
}

UIWindow *UIWindow::keyWindow()
{
    return theKeyWindow;
}

void UIWindow::makeKeyAndVisible()
{
    theKeyWindow = this;
    show();
    requestActivate(); // keys arrive even where no window manager hands out the focus
}

void UIWindow::setRootViewController(std::shared_ptr<UIViewController> controller)
{
    _rootViewController = std::move(controller);
    _rootViewController->loadViewIfNeeded(_engine);
    _rootViewController->viewWillAppear(false);
    _rootViewController->view()->setParentItem(_stage);
    _rootViewController->view()->setSize(_stage->size());
    _rootViewController->view()->setFocus(true);
    _rootViewController->viewDidAppear(false);
}

void UIWindow::showAlert(std::unique_ptr<UIAlertView> alertView)
{
    UIAlertView *shown = alertView.get();
    connect(shown, &UIAlertView::dismissed, this, [this, shown] { removeAlert(shown); });
    _alerts.push_back(std::move(alertView));
    if (!_alertLayer) {
        _alertLayer = QMLViews::create(_engine, "platform/AlertLayer.qml",
                                       {{"window", QVariant::fromValue(this)}});
        _alertLayer->setParent(this);
        _alertLayer->setParentItem(contentItem());
        _alertLayer->setZ(1.0);
        _alertLayer->setSize(size());
    }
    _stage->setEnabled(false);
    emit alertChanged();
    _alertLayer->forceActiveFocus();
}

void UIWindow::removeAlert(UIAlertView *alertView)
{
    const auto found = std::ranges::find(_alerts, alertView, &std::unique_ptr<UIAlertView>::get);
    if (found == _alerts.end())
        return;
    found->release()->deleteLater(); // it is still telling its delegate
    _alerts.erase(found);
    emit alertChanged();
    if (!_alerts.empty())
        return;
    _stage->setEnabled(true);
    _stage->forceActiveFocus();
}

void UIWindow::resizeEvent(QResizeEvent *event)
{
    QQuickWindow::resizeEvent(event);
    UIScreen::mainScreen().setSize(event->size());
    _stage->setSize(event->size());
    if (_rootViewController)
        _rootViewController->view()->setSize(event->size());
    if (_alertLayer)
        _alertLayer->setSize(event->size());
}
