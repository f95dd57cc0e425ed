#include "app/AppDelegate.h"

#include "platform/UINavigationController.h"

#include <QIcon>

bool AppDelegate::didFinishLaunchingWithOptions()
{
    _window = std::make_unique<UIWindow>();
    _window->setTitle("Tintloom");
    // The icon is a picture to be decoded, which can wait until the first frame is shown.
    QObject::connect(
        _window.get(), &QQuickWindow::frameSwapped, _window.get(),
        [window = _window.get()] { window->setIcon(QIcon(":/images/tintloom.png")); },
        Qt::SingleShotConnection);
    _window->makeKeyAndVisible();

    const auto editor = CustomViewController::initFromAppDelegate(_folders);
    _window->setRootViewController(UINavigationController::initWithRootViewController(editor));
    return editor->source().status() != ElementDataSource::Status::Unusable;
}
