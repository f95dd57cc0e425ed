// The program started into the catalogue, on a list and themes of a test's own.
#pragma once

#include "catalogue/window/MainViewController.h"
#include "platform/UITableViewSubtitleCell.h"
#include "support/EditorFixture.h"
#include "support/ThemeRecords.h"

class CatalogueFixture : public EditorFixture
{
protected:
    void SetUp() override
    {
        writeDocument(QJsonArray{element("plain", "A", "#111111FF"),
                                 element("list-background-image", "A", "#222222FF"),
                                 element("unread-indicator-image", "A", "#333333FF")});
        put(_resources + "/Red/Info.plist", info("#FF0000FF"));
        // Only the one on top becomes the working copy, though this one is copied after it.
        put(_resources + "/Red/Nested/Info.plist", info("#00FF00FF"));
        put(_resources + "/Red/UIKit/image.png", "picture");
        put(_resources + "/Blue/Info.plist", info("#0000FFFF"));
    }
    void TearDown() override
    {
        stop(); // while a hook that the program's threads may call still stands
        NSFileManager::setFaultHook({});
    }

    static QByteArray info(const QString &color)
    {
        PropertyDictionary dictionary;
        dictionary.setValue("plain", color);
        return PropertyList::writeDictionary(dictionary);
    }
    void open(QSize size = {320, 568})
    {
        putThemes(_resources, _records);
        start(size, AppDelegate::Root::Catalogue);
    }

    MainViewController &catalogue()
    {
        return *static_cast<MainViewController *>(navigation().viewControllers().front().get());
    }
    NSIndexPath rowOf(const QString &name)
    {
        for (int section = 0; section < catalogue().numberOfSectionsInTableView(); ++section)
            for (int row = 0; row < catalogue().numberOfRowsInSection(section); ++row)
                if (cell({section, row})->textLabel()->text() == name)
                    return {section, row};
        return {};
    }
    UITableViewSubtitleCell *cell(NSIndexPath indexPath)
    {
        return qobject_cast<UITableViewSubtitleCell *>(table().cellForRowAtIndexPath(indexPath));
    }
    UITableViewSubtitleCell *row(const QString &name) { return cell(rowOf(name)); }

    /// A finger that rests on a row until its press counts as long.
    void longPress(const QString &name) { longPress(row(name)); }
    void longPress(UITableViewCell *pressed)
    {
        const QPoint point = sceneFrame(pressed).center().toPoint();
        for (const auto &recognizer : pressed->gestureRecognizers()) {
            EXPECT_EQ(recognizer->minimumPressDuration(), 0.5);
            recognizer->setMinimumPressDuration(0.0); // for this press
        }
        press(point);
        QTest::qWait(1); // timers run
        for (const auto &recognizer : pressed->gestureRecognizers())
            recognizer->setMinimumPressDuration(0.5);
        settle();
        release(point);
        settle();
    }
    void answer(int button)
    {
        window().alert()->click(button);
        settle();
    }
    bool waitForSaved()
    {
        const bool saved = QTest::qWaitFor(
            [this] { return window().alert() && window().alert()->title() == "Saved"; });
        settle();
        return saved;
    }
    /// Presses the alert's second button, which starts a flow, and waits for the flow's own alert.
    bool agreeAndWait()
    {
        answer(1);
        return waitForSaved();
    }
    void finishSlide()
    {
        auto *slide = navigation().findChild<QPropertyAnimation *>("slide");
        slide->setCurrentTime(slide->duration());
        settle();
    }
    void goBack()
    {
        tap(navigation().view()->findChild<QQuickItem *>("back"));
        finishSlide();
    }
    QString installed(const QString &file) const
    {
        return folders().theme.packageFolder() + '/' + file;
    }

    QByteArray _records =
        themeRecord("Zebra", "Stripes", "Black and white") +
        themeRecord("Custom", "Build Your Own!", "not shown") +
        themeRecord("Custom", "Mine", "Too") + themeRecord("alpha", "Later", "not shown", "No") +
        themeRecord("alpha", "Red", "Warm") + themeRecord("alpha", "Blue", "Cold");
};
