#include "app/window/AppDelegate.h"

#include "catalogue/window/MainViewController.h"
#include "platform/UINavigationController.h"
#include "platform/foundation/NSLog.h"
#include "theme/WorkingCopyKeeper.h"

#include <QIcon>

bool AppDelegate::didFinishLaunchingWithOptions()
{
    // Held until the choices are read, so that nobody takes them away meanwhile. It may wait for
    // another Tintloom: there is no window yet to stand still.
    const auto keeper = WorkingCopyKeeper::open(_folders.theme);
    if (!keeper->refusal().isEmpty()) {
        NSLog("Cannot start: %@", {keeper->refusal()});
        return false;
    }
    setWindow(std::make_unique<UIWindow>());
    _window->setTitle("Tintloom");
    // The icon is a picture to be decoded, which can wait until the first frame is shown.
    QObject::connect(
        _window.get(), &QQuickWindow::frameSwapped, _window.get(),
        [window = _window.get()] { window->setIcon(QIcon(":/images/tintloom.png")); },
        Qt::ConnectionType(Qt::QueuedConnection | Qt::SingleShotConnection));
    _window->makeKeyAndVisible();

    if (_root == Root::Catalogue) {
        setRoot(MainViewController::init(_folders));
        return true;
    }
    const auto editor = CustomViewController::initFromAppDelegate(_folders);
    setRoot(editor);
    return editor->source().status() != ElementDataSource::Status::Unusable;
}

void AppDelegate::setRoot(std::shared_ptr<UIViewController> controller)
{
    _window->setRootViewController(
        UINavigationController::initWithRootViewController(std::move(controller)));
}
