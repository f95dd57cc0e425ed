// The chooser in an offscreen window of its own, telling a delegate that remembers.
#pragma once

#include "chooser/ColorPickerViewController.h"
#include "platform/QMLViews.h"
#include "platform/UIButton.h"
#include "platform/UINavigationController.h"
#include "platform/UIWindow.h"
#include "platform/foundation/UIScreen.h"
#include "support/WindowFixture.h"
#include "theme/ColorText.h"

class ChooserFixture : public WindowFixture
{
protected:
    struct Delegate : ColorPickerViewDelegate {
        void dismissWithNoChange() override { answers += "cancel"; }
        void dismissWithColorSectionAndRow(const UIColor &color, std::int32_t section,
                                           std::int32_t row) override
        {
            answers += QString("%1 at %2, %3").arg(hexStringForColor(color)).arg(section).arg(row);
        }
        void dismissWithNoColorSectionAndRow(std::int32_t section, std::int32_t row) override
        {
            answers += QString("removed at %1, %2").arg(section).arg(row);
        }
        void dismissWithColorAndRow(const UIColor &, std::int32_t) override { answers += "?"; }
        void dismissWithNoColorAndRow(std::int32_t) override { answers += "?"; }

        QStringList answers;
    };

    void open(std::shared_ptr<ColorPickerViewController> made, QSize size = {320, 568})
    {
        chooser = std::move(made);
        delegate = std::make_shared<Delegate>();
        chooser->setDelegate(delegate);
        UIScreen::mainScreen().setSize(size);
        _window = std::make_unique<UIWindow>();
        _window->makeKeyAndVisible();
        _window->setRootViewController(UINavigationController::initWithRootViewController(chooser));
        ASSERT_TRUE(QTest::qWaitForWindowActive(_window.get()));
        settle();
    }
    void open(const QString &color, QSize size = {320, 568})
    {
        open(ColorPickerViewController::initWithColorSectionAndRow(colorFromHexString(color), 2, 7),
             size);
    }

    UIWindow &window() override { return *_window; }
    QRectF frame(const char *name)
    {
        return sceneFrame(chooser->view()->findChild<QQuickItem *>(name));
    }
    using WindowFixture::tap;
    void tap(const char *name) { tap(frame(name).center()); }
    /// The quick button of that number, from the left.
    void tapQuick(int index)
    {
        tap(frame("quickButtons").topLeft() + QPointF(25 + index * 52, 15));
    }
    QString text() { return chooser->hexTextField()->text(); }

    std::shared_ptr<ColorPickerViewController> chooser;
    std::shared_ptr<Delegate> delegate;

private:
    std::unique_ptr<UIWindow> _window;
};
