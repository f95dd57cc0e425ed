#include "platform/UINavigationController.h"

#include "platform/QMLViews.h"
#include "platform/UINavigationPage.h"

UINavigationController::UINavigationController()
{
    _slide.setPropertyName("x");
    _slide.setObjectName("slide");
    _slide.setDuration(350);
    _slide.setEasingCurve(QEasingCurve::OutCubic);
    connect(&_slide, &QPropertyAnimation::finished, this, &UINavigationController::finishSlide);
}

UINavigationController::~UINavigationController() = default;

std::shared_ptr<UINavigationController>
UINavigationController::initWithRootViewController(std::shared_ptr<UIViewController> root)
{
    const auto controller = own(new UINavigationController);
    root->setNavigationController(controller.get());
    controller->_viewControllers.push_back(std::move(root));
    return controller;
}

void UINavigationController::setNavigationBarHidden(bool hidden)
{
    if (_barHidden == hidden)
        return;
    _barHidden = hidden;
    emit barHiddenChanged();
    showBarIfNeeded();
}

void UINavigationController::setNavigationBarColor(const QColor &color)
{
    if (_barColor == color)
        return;
    _barColor = color;
    emit barColorChanged();
}

void UINavigationController::showBarIfNeeded()
{
    if (_barHidden || _bar || !view())
        return;
    _bar = QMLViews::create(*engine(), "platform/NavigationBar.qml",
                            {{"controller", QVariant::fromValue(this)}});
    _bar->setParent(view());
    _bar->setParentItem(view());
}

QQuickItem *UINavigationController::pages() const
{
    return page<UINavigationPage>().pages;
}

void UINavigationController::place(UIViewController &controller)
{
    controller.loadViewIfNeeded(*engine());
    controller.view()->setParentItem(pages());
    controller.view()->setSize(pages()->size());
    controller.view()->setVisible(true);
    controller.view()->setFocus(true);
}

void UINavigationController::pushViewController(const std::shared_ptr<UIViewController> &controller,
                                                bool animated)
{
    finishSlide();
    UIViewController &below = *topViewController();
    controller->setNavigationController(this);
    _viewControllers.push_back(controller);
    emit stackChanged();
    if (!view())
        return;
    below.viewWillDisappear(animated);
    below.view()->setEnabled(false);
    controller->loadViewIfNeeded(*engine());
    controller->viewWillAppear(animated);
    place(*controller);
    slide(animated ? view()->width() : 0.0, 0.0, controller);
}

void UINavigationController::popViewController(bool animated)
{
    finishSlide();
    if (!canGoBack())
        return;
    const std::shared_ptr<UIViewController> leaving = _viewControllers.back();
    leaving->viewWillDisappear(animated);
    _viewControllers.pop_back();
    emit stackChanged();
    topViewController()->viewWillAppear(animated);
    place(*topViewController());
    topViewController()->view()->setEnabled(true);
    leaving->view()->setEnabled(false);
    slide(0.0, animated ? view()->width() : 0.0, leaving);
}

void UINavigationController::goBack()
{
    if (topViewController()->allowsBack())
        popViewController();
}

void UINavigationController::slide(double from, double to, std::shared_ptr<UIViewController> moving)
{
    _sliding = std::move(moving);
    _sliding->view()->setZ(1.0);
    _sliding->view()->setX(from);
    if (from == to) {
        finishSlide();
        return;
    }
    _slide.setTargetObject(_sliding->view());
    _slide.setStartValue(from);
    _slide.setEndValue(to);
    _slide.start();
}

void UINavigationController::finishSlide()
{
    const std::shared_ptr<UIViewController> moved = std::move(_sliding);
    if (!moved)
        return;
    _slide.stop();
    moved->view()->setZ(0.0);
    moved->view()->setX(0.0);
    if (moved.get() == topViewController()) {
        if (canGoBack())
            _viewControllers.end()[-2]->view()->setVisible(false);
    } else {
        moved->view()->setParentItem(nullptr);
        moved->view()->setEnabled(true);
        moved->setNavigationController(nullptr);
    }
    topViewController()->viewDidAppear(true);
}

void UINavigationController::viewDidLoad()
{
    topViewController()->loadViewIfNeeded(*engine());
}

void UINavigationController::viewWillAppear(bool animated)
{
    topViewController()->viewWillAppear(animated);
    place(*topViewController());
    showBarIfNeeded();
}

void UINavigationController::viewDidAppear(bool animated)
{
    topViewController()->viewDidAppear(animated);
}

void UINavigationController::viewWillDisappear(bool animated)
{
    topViewController()->viewWillDisappear(animated);
}

void UINavigationController::viewDidLayoutSubviews()
{
    for (const auto &controller : _viewControllers)
        if (controller->view())
            controller->view()->setSize(view()->size());
}

void UINavigationController::prepareForTermination()
{
    finishSlide();
    for (const auto &controller : _viewControllers)
        controller->prepareForTermination();
}
