#include "platform/UIWindow.h"

#include "platform/QMLViews.h"
#include "platform/foundation/UIScreen.h"

#include <QFontMetricsF>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QResizeEvent>

#include <algorithm>
#include <fontconfig/fontconfig.h>
#include <utility>

namespace
{
UIWindow *theKeyWindow = nullptr;
} // namespace

UIWindow::UIWindow() : _fontSearch([] { FcInit(); }), _stage(new QQuickItem(contentItem()))
{
    QMLViews::prepareEngine(_engine);
    _firstRead = QMLViews::readAhead(_engine, "platform/NavigationView.qml");
    // While another thread reads, this one loads the font that the first text would wait for.
    _fontSearch.join(); // or it would search all over again
    QFontMetricsF(QGuiApplication::font()).height();
    setColor(Qt::white);
    resize(UIScreen::mainScreen().size().toSize());
    _stage->setFlag(QQuickItem::ItemIsFocusScope);
    _stage->setFocus(true);
    setStageSize(size());
}

UIWindow::~UIWindow()
{
    if (_rootViewController)
        _rootViewController->prepareForTermination();
    delete _alertLayer;
    delete _actionSheetLayer;
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

void UIWindow::setDocumentEdited(bool isEdited)
{
    if (std::exchange(_isDocumentEdited, isEdited) == isEdited)
        return;
    const QString mark = QStringLiteral("*"); // as desktops have it
    setTitle(isEdited ? title() + mark : title().chopped(mark.size()));
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
    if (!_alertLayer)
        _alertLayer =
            addLayer("platform/AlertLayer.qml", {{"window", QVariant::fromValue(this)}}, 2.0);
    emit alertChanged();
    giveInputToTop();
}

void UIWindow::removeAlert(UIAlertView *alertView)
{
    const auto found = std::ranges::find(_alerts, alertView, &std::unique_ptr<UIAlertView>::get);
    if (found == _alerts.end())
        return;
    found->release()->deleteLater(); // it is still telling its delegate
    _alerts.erase(found);
    emit alertChanged();
    giveInputToTop();
}

void UIWindow::showActionSheet(std::unique_ptr<UIActionSheet> actionSheet)
{
    if (_actionSheet)
        removeActionSheet();
    _actionSheet = std::move(actionSheet);
    connect(_actionSheet.get(), &UIActionSheet::dismissed, this, &UIWindow::removeActionSheet);
    _actionSheetLayer = addLayer("platform/ActionSheetLayer.qml",
                                 {{"sheet", QVariant::fromValue(_actionSheet.get())}}, 1.0);
    giveInputToTop();
}

void UIWindow::removeActionSheet()
{
    _actionSheetLayer->setVisible(false);
    _actionSheetLayer->deleteLater(); // one of its buttons is being pressed
    _actionSheetLayer = nullptr;
    _actionSheet.release()->deleteLater(); // it is still telling its delegate
    giveInputToTop();
}

void UIWindow::setStageSize(QSizeF size)
{
    UIScreen::mainScreen().setSize(size);
    _stage->setSize(size);
    if (_rootViewController)
        _rootViewController->view()->setSize(size);
}

QQuickItem *UIWindow::addLayer(const char *file, const QVariantMap &properties, double z)
{
    QQuickItem *layer = QMLViews::create(_engine, file, properties);
    layer->setParent(this);
    layer->setParentItem(contentItem());
    layer->setZ(z);
    layer->setSize(size());
    return layer;
}

void UIWindow::giveInputToTop()
{
    QQuickItem *const top = !_alerts.empty()    ? _alertLayer
                            : _actionSheetLayer ? _actionSheetLayer
                                                : _stage;
    _stage->setEnabled(top == _stage);
    if (_actionSheetLayer)
        _actionSheetLayer->setEnabled(top == _actionSheetLayer);
    top->forceActiveFocus();
}

void UIWindow::keyPressEvent(QKeyEvent *event)
{
    QQuickWindow::keyPressEvent(event);
    if (!event->isAccepted() && _stage->isEnabled() && _rootViewController)
        event->setAccepted(_rootViewController->keyPressed(event->key(), event->modifiers()));
}

void UIWindow::resizeEvent(QResizeEvent *event)
{
    QQuickWindow::resizeEvent(event);
    setStageSize(event->size()); // which is all of the window
    for (QQuickItem *layer : {_alertLayer, _actionSheetLayer})
        if (layer)
            layer->setSize(event->size());
}
