#include "platform/UIWindow.h"

#include "platform/DropTarget.h"
#include "platform/QMLViews.h"
#include "platform/foundation/UIScreen.h"

#include <QFontMetricsF>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QResizeEvent>

#include <algorithm>
#include <utility>

namespace
{
UIWindow *theKeyWindow = nullptr;
} // namespace

UIWindow::UIWindow(std::optional<QSize> size)
    : _dropTarget(new DropTarget(
          [this](const QMimeData &data, DropTarget::Act act) {
              return !_presented && _rootViewController &&
                     (act == DropTarget::Act::Ask ? _rootViewController->takesDrop(data)
                                                  : _rootViewController->drop(data));
          },
          contentItem())),
      _stage(new QQuickItem(contentItem())),
      _stageWidth(size ? std::nullopt : std::optional(UIScreen::mainScreen().size().width()))
{
    QMLViews::prepareEngine(_engine);
    connect(
        this, &QQuickWindow::frameSwapped, this,
        [this] {
            _hasShownFrame = true;
            loadPane();
            emit firstFrameShown();
        },
        Qt::ConnectionType(Qt::QueuedConnection | Qt::SingleShotConnection));
    setColor(Qt::white);
    resize(size.value_or(UIScreen::mainScreen().size().toSize()));
    _stage->setFlag(QQuickItem::ItemIsFocusScope);
    _stage->setFocus(true);
    layOut();
}

UIWindow::~UIWindow()
{
    if (_rootViewController)
        _rootViewController->prepareForTermination();
    delete _alertLayer;
    delete _actionSheetLayer;
    _pane.reset();
    _presented.reset();
    _rootViewController.reset();
    if (theKeyWindow == this)
        theKeyWindow = nullptr;
}

void UIWindow::readAhead(std::initializer_list<const char *> files)
{
    for (const char *file : files)
        _readAhead.push_back(QMLViews::readAhead(_engine, file));
    QFontMetricsF(QGuiApplication::font()).height();
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

void UIWindow::afterFirstFrame(QObject *context, std::function<void()> action)
{
    if (theKeyWindow && !theKeyWindow->_hasShownFrame)
        connect(theKeyWindow, &UIWindow::firstFrameShown, context, std::move(action));
    else
        QMetaObject::invokeMethod(context, std::move(action), Qt::QueuedConnection);
}

void UIWindow::setDocumentEdited(bool isEdited)
{
    if (std::exchange(_isDocumentEdited, isEdited) != isEdited)
        showTitle();
}

void UIWindow::setDocumentName(const QString &name)
{
    if (std::exchange(_documentName, name) != name)
        showTitle();
}

void UIWindow::showTitle()
{
    const QString program = QStringLiteral("Tintloom");
    const QString mark = _isDocumentEdited ? QStringLiteral("*") : QString(); // as desktops have it
    setTitle(
        (_documentName.isEmpty() ? program : _documentName + QStringLiteral(" \u2013 ") + program) +
        mark);
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

void UIWindow::presentViewController(std::shared_ptr<UIViewController> controller)
{
    if (_presented) {
        _presented->viewWillDisappear(false);
        _presented->view()->setParentItem(nullptr);
    }
    _presented = std::move(controller);
    QQuickItem *root = _rootViewController->view();
    root->setEnabled(!_presented);
    if (!_presented)
        return root->forceActiveFocus();
    _presented->loadViewIfNeeded(_engine);
    _presented->view()->setSize(_stage->size());
    _presented->view()->setParentItem(_stage);
    _presented->view()->forceActiveFocus();
}

void UIWindow::dismissViewController(std::function<void()> then)
{
    const auto dismiss = [this, then = std::move(then)] {
        presentViewController(nullptr);
        if (then)
            then();
    };
    QMetaObject::invokeMethod(this, dismiss, Qt::QueuedConnection);
}

void UIWindow::setPaneViewController(std::shared_ptr<UIViewController> controller)
{
    _pane = std::move(controller);
    layOut();
}

void UIWindow::setPaneWanted(bool isWanted)
{
    if (std::exchange(_isPaneWanted, isWanted) == isWanted)
        return;
    layOut();
    emit paneWantedChanged(isWanted);
}

WindowLayout UIWindow::layoutFor(bool wantsPane) const
{
    return WindowLayout::make(size(), wantsPane, _stageWidth);
}

bool UIWindow::hasRoomForPane() const
{
    return !layoutFor(true).pane.isEmpty();
}

void UIWindow::layOut()
{
    const bool hadPane = hasPane();
    _layout = layoutFor(_pane && _isPaneWanted);
    UIScreen::mainScreen().setSize(_layout.stage.size());
    _stage->setPosition(_layout.stage.topLeft());
    _stage->setSize(_layout.stage.size());
    _dropTarget->setSize(size());
    if (_rootViewController)
        _rootViewController->view()->setSize(_stage->size());
    if (_presented)
        _presented->view()->setSize(_stage->size());
    for (QQuickItem *layer : {_alertLayer, _actionSheetLayer})
        if (layer) {
            layer->setPosition(_stage->position());
            layer->setSize(_stage->size());
        }
    loadPane();
    if (hadPane != hasPane())
        emit paneChanged();
}

void UIWindow::loadPane()
{
    if (!_pane || !_hasShownFrame || (!hasPane() && !_pane->view()))
        return;
    if (!_pane->view()) {
        _pane->loadViewIfNeeded(_engine);
        _pane->view()->setParentItem(contentItem());
        giveInputToTop();
    }
    _pane->view()->setVisible(hasPane());
    if (!hasPane())
        return;
    _pane->view()->setPosition(_layout.pane.topLeft());
    _pane->view()->setSize(_layout.pane.size());
}

QQuickItem *UIWindow::addLayer(const char *file, const QVariantMap &properties, double z)
{
    QQuickItem *layer = QMLViews::create(_engine, file, properties);
    layer->setParent(this);
    layer->setParentItem(contentItem());
    layer->setZ(z);
    layer->setPosition(_stage->position());
    layer->setSize(_stage->size());
    return layer;
}

void UIWindow::giveInputToTop()
{
    QQuickItem *const top = !_alerts.empty()    ? _alertLayer
                            : _actionSheetLayer ? _actionSheetLayer
                                                : _stage;
    _stage->setEnabled(top == _stage);
    _dropTarget->setEnabled(top == _stage);
    if (_pane && _pane->view())
        _pane->view()->setEnabled(top == _stage);
    if (_actionSheetLayer)
        _actionSheetLayer->setEnabled(top == _actionSheetLayer);
    if (!top->hasActiveFocus() && !(_pane && _pane->view() && _pane->view()->hasActiveFocus()))
        top->forceActiveFocus();
}

void UIWindow::keyPressEvent(QKeyEvent *event)
{
    QQuickWindow::keyPressEvent(event);
    UIViewController *const top = _presented ? _presented.get() : _rootViewController.get();
    if (!event->isAccepted() && _stage->isEnabled() && top)
        event->setAccepted(top->keyPressed(event->key(), event->modifiers()));
}

void UIWindow::resizeEvent(QResizeEvent *event)
{
    QQuickWindow::resizeEvent(event);
    layOut();
}
