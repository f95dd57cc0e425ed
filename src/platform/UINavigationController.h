// A stack of screens under a bar that can be hidden.
//
// The bar is 44 points high under the 20-point status strip and lies over the screens, which always
// have the whole height. The screen on top is shown; a push slides the new one in from the right, a
// pop slides it out again.
#pragma once

#include "platform/UIViewController.h"

#include <QColor>
#include <QPropertyAnimation>

#include <vector>

class UINavigationController : public UIViewController
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the program's start")
    Q_PROPERTY(double barHeight READ navigationBarHeight CONSTANT FINAL)
    Q_PROPERTY(bool barHidden READ isNavigationBarHidden NOTIFY barHiddenChanged FINAL)
    Q_PROPERTY(QColor barColor READ navigationBarColor NOTIFY barColorChanged FINAL)
    Q_PROPERTY(QString topTitle READ topTitle NOTIFY stackChanged FINAL)
    Q_PROPERTY(bool canGoBack READ canGoBack NOTIFY stackChanged FINAL)

public:
    static std::shared_ptr<UINavigationController>
    initWithRootViewController(std::shared_ptr<UIViewController> root);
    ~UINavigationController() override;

    /// Points, whether the bar is hidden or not.
    static constexpr double navigationBarHeight() { return 44.0; }
    bool isNavigationBarHidden() const { return _barHidden; }
    void setNavigationBarHidden(bool hidden);

    /// The bar's background; a light grey until set.
    QColor navigationBarColor() const { return _barColor; }
    void setNavigationBarColor(const QColor &color);
    QString topTitle() const { return topViewController()->title(); }

    const std::vector<std::shared_ptr<UIViewController>> &viewControllers() const
    {
        return _viewControllers;
    }
    UIViewController *topViewController() const { return _viewControllers.back().get(); }
    bool canGoBack() const { return _viewControllers.size() > 1; }

    void pushViewController(const std::shared_ptr<UIViewController> &controller, bool animated);
    /// Takes the top screen off; the root stays. Its view lives until it has slid out.
    void popViewController(bool animated = true);
    /// What the bar's button does: a pop, if the top screen allows it now.
    Q_INVOKABLE void goBack();

    bool keyPressed(int key, Qt::KeyboardModifiers modifiers) override
    {
        return topViewController()->keyPressed(key, modifiers);
    }
    bool takesDrop(const QMimeData &data) override { return topViewController()->takesDrop(data); }
    bool drop(const QMimeData &data) override { return topViewController()->drop(data); }
    void viewDidLoad() override;
    void viewWillAppear(bool animated) override;
    void viewDidAppear(bool animated) override;
    void viewWillDisappear(bool animated) override;
    void viewDidLayoutSubviews() override;
    void prepareForTermination() override;

signals:
    void barHiddenChanged();
    void barColorChanged();
    void stackChanged();

protected:
    const char *viewFile() const override { return "platform/NavigationView.qml"; }

private:
    UINavigationController();
    QQuickItem *pages() const;
    void showBarIfNeeded();
    void place(UIViewController &controller);
    void slide(double from, double to, std::shared_ptr<UIViewController> moving);
    void finishSlide();

    std::vector<std::shared_ptr<UIViewController>> _viewControllers;
    bool _barHidden = false;
    QColor _barColor{248, 248, 248, 242};
    QQuickItem *_bar = nullptr;      // made when it is first shown, which may be never
    QPropertyAnimation _slide{this}; // of the x of the page that comes or goes
    std::shared_ptr<UIViewController> _sliding;
};
