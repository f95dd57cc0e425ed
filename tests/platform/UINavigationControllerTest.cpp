#include "platform/UINavigationController.h"

#include "platform/UIWindow.h"

#include <QTest>

#include <gtest/gtest.h>

namespace
{
QStringList events;

// Notes its lifecycle; drawn by whatever takes no controller.
class Page : public UIViewController
{
public:
    static std::shared_ptr<Page> make(const QString &name)
    {
        const auto page = own(new Page);
        page->setObjectName(name);
        return page;
    }
    ~Page() override { note("gone"); }
    void viewDidLoad() override { note("load"); }
    void viewWillAppear(bool) override { note("will"); }
    void viewDidAppear(bool) override { note("did"); }
    void viewWillDisappear(bool) override { note("leave"); }

protected:
    const char *viewFile() const override { return "platform/ActivityIndicator.qml"; }

private:
    void note(const char *event) { events += objectName() + ' ' + event; }
};
} // namespace

TEST(UINavigationController, PushesAndPopsWithOneLifecyclePerStep)
{
    events.clear();
    const auto takeEvents = [] { return std::exchange(events, {}); };
    UIWindow window;
    auto stack = UINavigationController::initWithRootViewController(Page::make("root"));
    window.setRootViewController(stack);
    window.makeKeyAndVisible();
    EXPECT_EQ(takeEvents(), (QStringList{"root load", "root will", "root did"}));

    stack->pushViewController(Page::make("next"), true);
    auto *slide = stack->findChild<QPropertyAnimation *>("slide");
    EXPECT_EQ(stack->topViewController()->view()->x(), window.width());
    slide->setCurrentTime(slide->duration());
    EXPECT_EQ(takeEvents(), (QStringList{"root leave", "next load", "next will", "next did"}));
    EXPECT_EQ(stack->topViewController()->view()->x(), 0.0);

    stack->popViewController(true);
    slide->setCurrentTime(slide->duration());
    EXPECT_EQ(takeEvents(), (QStringList{"next leave", "root will", "root did", "next gone"}));

    stack->popViewController(true); // the root stays
    EXPECT_TRUE(takeEvents().isEmpty());

    // A pop in the middle of a push finishes the push first.
    stack->pushViewController(Page::make("hasty"), true);
    stack->popViewController(false);
    EXPECT_EQ(events.last(), "hasty gone");
    const QQuickItem *root = stack->topViewController()->view();
    EXPECT_TRUE(root->isEnabled() && root->isVisible());
}

TEST(UINavigationController, LastOwnerOnAnotherThreadLeavesTheEndToTheMainThread)
{
    events.clear();
    auto page = Page::make("page");
    std::thread([page = std::move(page)]() mutable { page.reset(); }).join();
    EXPECT_TRUE(events.isEmpty());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(events, QStringList{"page gone"});
}
