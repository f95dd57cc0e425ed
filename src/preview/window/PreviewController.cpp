#include "preview/window/PreviewController.h"

#include "platform/UIWindow.h"

std::shared_ptr<PreviewController> PreviewController::initPane(PreviewModel &model)
{
    return own(new PreviewController(model, false));
}

std::shared_ptr<PreviewController> PreviewController::initPage(PreviewModel &model)
{
    return own(new PreviewController(model, true));
}

void PreviewController::presentPage(PreviewModel &model)
{
    const auto page = initPage(model);
    connect(page.get(), &PreviewController::closeTapped, page.get(), &dismissPage);
    UIWindow::keyWindow()->presentViewController(page);
}

void PreviewController::dismissPage()
{
    UIWindow *window = UIWindow::keyWindow();
    // The page's own button may be telling.
    QMetaObject::invokeMethod(
        window, [window] { window->presentViewController(nullptr); }, Qt::QueuedConnection);
}

void PreviewController::toggle(PreviewModel &model)
{
    UIWindow *window = UIWindow::keyWindow();
    if (window->hasRoomForPane())
        window->setPaneWanted(!window->isPaneWanted());
    else
        presentPage(model);
}
