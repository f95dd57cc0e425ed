// The chooser in an offscreen window of its own, telling a delegate that remembers.
#pragma once

#include "chooser/ColorPickerViewController.h"
#include "platform/QMLViews.h"
#include "platform/UIButton.h"
#include "platform/UINavigationController.h"
#include "platform/UIWindow.h"
#include "platform/foundation/UIScreen.h"
#include "theme/ColorText.h"

#include <QTest>

#include <gtest/gtest.h>

class ChooserFixture : public testing::Test
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
        window = std::make_unique<UIWindow>();
        window->makeKeyAndVisible();
        window->setRootViewController(UINavigationController::initWithRootViewController(chooser));
        ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
        QCoreApplication::processEvents();
    }
    void open(const QString &color, QSize size = {320, 568})
    {
        open(ColorPickerViewController::initWithColorSectionAndRow(colorFromHexString(color), 2, 7),
             size);
    }

    QRectF frame(const char *name)
    {
        const auto *item = chooser->view()->findChild<QQuickItem *>(name);
        return item->mapRectToScene(item->boundingRect());
    }
    void tap(QPointF point)
    {
        QTest::mouseClick(window.get(), Qt::LeftButton, {}, point.toPoint());
        QCoreApplication::processEvents();
    }
    void tap(const char *name) { tap(frame(name).center()); }
    /// The quick button of that number, from the left.
    void tapQuick(int index)
    {
        tap(frame("quickButtons").topLeft() + QPointF(25 + index * 52, 15));
    }
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(window.get(), key, modifiers);
    }
    void type(const char *text)
    {
        for (; *text; ++text)
            QTest::keyClick(window.get(), *text);
    }
    QString text() { return chooser->hexTextField()->text(); }

    std::shared_ptr<ColorPickerViewController> chooser;
    std::shared_ptr<Delegate> delegate;
    std::unique_ptr<UIWindow> window;
};
