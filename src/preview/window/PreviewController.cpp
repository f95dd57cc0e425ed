#include "preview/window/PreviewController.h"

#include "platform/UIWindow.h"

PreviewController::PreviewController(PreviewModel &model, bool isClosable)
    : _model(model), _isClosable(isClosable)
{
    connect(&model, &PreviewModel::interactiveChanged, this, &PreviewController::takesKeysChanged);
}

bool PreviewController::close()
{
    if (_isClosable)
        dismissPage();
    return _isClosable;
}

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
    UIWindow::keyWindow()->presentViewController(initPage(model));
}

void PreviewController::dismissPage()
{
    UIWindow::keyWindow()->dismissViewController();
}

void PreviewController::toggle(PreviewModel &model)
{
    UIWindow *window = UIWindow::keyWindow();
    if (window->hasRoomForPane())
        window->setPaneWanted(!window->isPaneWanted());
    else
        presentPage(model);
}
