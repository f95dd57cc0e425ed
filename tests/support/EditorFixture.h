// A started program in an offscreen window, on folders of its own.
#pragma once

#include "app/window/AppDelegate.h"
#include "chooser/ColorPickerViewController.h"
#include "editor/CustomViewController.h"
#include "platform/UINavigationController.h"
#include "platform/foundation/UIScreen.h"
#include "support/Files.h"
#include "support/WindowFixture.h"
#include "views/CustomTableCell.h"

#include <QAbstractAnimation>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>

#include <memory>

class EditorFixture : public WindowFixture
{
protected:
    /// One element of a data source; the defaults make a colour element without a colour.
    static QJsonObject element(const QString &key, const QString &section,
                               const QJsonValue &color = {}, const QJsonValue &options = {},
                               const QJsonValue &value = {})
    {
        return {{"key", key},        {"name", "Name of " + key}, {"description", "About " + key},
                {"color", color},    {"options", options},       {"value", value},
                {"section", section}};
    }

    /// That many colour elements in one section.
    static QJsonArray manyElements(int count)
    {
        QJsonArray elements;
        for (int i = 0; i < count; ++i)
            elements.append(element(QString("key-%1").arg(i), "All", "#336699FF"));
        return elements;
    }

    void writeDocument(const QByteArray &bytes)
    {
        put(_folder.filePath("initialDatasource.txt"), bytes);
    }
    void writeDocument(const QJsonArray &array) { writeDocument(QJsonDocument(array).toJson()); }
    /// The elements that ship.
    void useShippedDocument() { _resources = TINTLOOM_SOURCE_RESOURCES; }

    EditorFolders folders() const
    {
        return {_resources, {_packageRoot, _folder.filePath("documents")}};
    }

    /// Starts the program, or starts it again, as after a restart.
    void start(QSize size = {320, 568}, AppDelegate::Root root = AppDelegate::Root::Editor)
    {
        UIScreen::mainScreen().setSize(size);
        start(AppDelegate::Start{root});
    }
    void start(const AppDelegate::Start &how)
    {
        stop();
        _app = std::make_unique<AppDelegate>(folders(), how);
        ASSERT_TRUE(_app->didFinishLaunchingWithOptions());
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&window()));
        settle();
    }
    void stop() { _app.reset(); }

    UIWindow &window() override { return *_app->window(); }
    UINavigationController &navigation()
    {
        return *static_cast<UINavigationController *>(window().rootViewController());
    }
    CustomViewController &editor()
    {
        return *static_cast<CustomViewController *>(navigation().topViewController());
    }
    /// The screen on top, whichever it is.
    QQuickItem &screen() { return *navigation().topViewController()->view(); }
    UITableView &table() { return *screen().property("table").value<UITableView *>(); }
    CustomTableCell *cell(NSIndexPath indexPath)
    {
        return qobject_cast<CustomTableCell *>(table().cellForRowAtIndexPath(indexPath));
    }
    QQuickItem *item(const char *name) { return screen().findChild<QQuickItem *>(name); }

    ColorPickerViewController *chooser() { return editor().colorPickerView(); }
    /// Opens the chooser of a row in the first section; leaves it by one of its buttons.
    void open(int row)
    {
        tap(cell({0, row}));
        ASSERT_TRUE(chooser());
    }
    void leave(const char *button)
    {
        tap(chooser()->view()->findChild<QQuickItem *>(button));
        auto *fade = editor().findChild<QAbstractAnimation *>("fade");
        fade->setCurrentTime(fade->duration());
        settle();
    }

    void tapSave() { tap(item("_saveButton")); }
    void scrollTo(double offset)
    {
        table().parentItem()->parentItem()->setProperty("contentY", offset);
        settle();
    }
    void settle() override
    {
        WindowFixture::settle();
        table().layoutIfNeeded();
    }
    bool waitForAlert()
    {
        return QTest::qWaitFor([this] { return window().alert() != nullptr; });
    }
    QImage grab() { return window().grabWindow(); }

    QTemporaryDir _folder;
    QString _resources = _folder.path();
    QString _packageRoot = _folder.filePath("themes");

private:
    std::unique_ptr<AppDelegate> _app;
};
