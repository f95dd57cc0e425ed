#include "app/AppDelegate.h"

#include "platform/UINavigationController.h"

#include <QIcon>

bool AppDelegate::didFinishLaunchingWithOptions()
{
    _window = std::make_unique<UIWindow>();
    _window->setTitle("Tintloom");
    _window->setIcon(QIcon(":/images/tintloom.png"));
    _window->makeKeyAndVisible();

    const auto editor = CustomViewController::initFromAppDelegate(_folders);
    _window->setRootViewController(UINavigationController::initWithRootViewController(editor));
    return editor->source().status() != ElementDataSource::Status::Unusable;
}
