#include "preview/window/PreviewController.h"

std::shared_ptr<PreviewController> PreviewController::initPane(PreviewModel &model)
{
    return own(new PreviewController(model, false));
}

std::shared_ptr<PreviewController> PreviewController::initPage(PreviewModel &model)
{
    return own(new PreviewController(model, true));
}
