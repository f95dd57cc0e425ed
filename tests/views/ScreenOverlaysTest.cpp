#include "views/ScreenOverlays.h"

#include "support/EditorFixture.h"

#include <QAbstractAnimation>

using ScreenOverlaysTest = EditorFixture;

TEST_F(ScreenOverlaysTest, WhatLiesBelowTakesNoInputAndKeepsItsLook)
{
    writeDocument(manyElements(30));
    _packageRoot = _folder.filePath("initialDatasource.txt/below-a-file"); // for a notice
    start();
    const auto saveLooks = [this] { return item("_saveButton")->opacity(); };
    editor().showLoaderWithLabel("Busy");
    EXPECT_EQ(saveLooks(), 0.6) << "it is disabled itself";
    editor().removeLoader();
    tapSave();
    ASSERT_TRUE(waitForAlert());
    EXPECT_EQ(saveLooks(), 1.0) << "below an alert";
    key(Qt::Key_Escape);

    scrollTo(200.0);
    const QRectF strip = sceneFrame(item("notice"));
    for (const QPointF point : {strip.topLeft() + QPointF(3, 3), QPointF(78, 540), {20, 10}}) {
        tap(point);
        EXPECT_FALSE(editor().isChooserOpen()) << "through the bar at " << point.y();
    }
    tap({20, 300});
    ASSERT_TRUE(editor().isChooserOpen());
    EXPECT_EQ(saveLooks(), 1.0);
    const ColorPickerViewController &chooser = *editor().colorPickerView();
    for (int i = 0; i < 20; ++i) { // more than there are stops
        key(Qt::Key_Tab);
        EXPECT_TRUE(chooser.view()->hasActiveFocus()) << i;
    }
    key(Qt::Key_Escape);
    auto *fade = editor().findChild<QAbstractAnimation *>("fade");
    ASSERT_EQ(fade->state(), QAbstractAnimation::Running);
    EXPECT_EQ(chooser.view()->findChild<QQuickItem *>("_saveButton")->opacity(), 1.0);
    const QPointF dismiss = strip.topRight() + QPointF(-22, 22);
    tap(dismiss);
    EXPECT_TRUE(item("notice"));
    fade->setCurrentTime(fade->duration());
    settle();
    tap(dismiss);
    EXPECT_FALSE(item("notice"));
}
