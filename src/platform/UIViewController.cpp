#include "platform/UIViewController.h"

#include "platform/QMLViews.h"

#include <QCoreApplication>
#include <QThread>

UIViewController::~UIViewController() = default;

void UIViewController::loadViewIfNeeded(QQmlEngine &engine)
{
    if (_view)
        return;
    _engine = &engine;
    QQmlEngine::setObjectOwnership(this, QQmlEngine::CppOwnership);
    _view.reset(QMLViews::create(engine, viewFile(), {{"controller", QVariant::fromValue(this)}}));
    viewDidLoad();
    connect(_view.get(), &QQuickItem::widthChanged, this, &UIViewController::viewDidLayoutSubviews);
    connect(_view.get(), &QQuickItem::heightChanged, this,
            &UIViewController::viewDidLayoutSubviews);
}

void UIViewController::destroyOnMainThread(UIViewController *controller)
{
    if (QThread::currentThread() == controller->thread())
        delete controller;
    else
        controller->deleteLater();
}
