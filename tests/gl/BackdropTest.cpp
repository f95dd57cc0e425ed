#include "support/EditorFixture.h"

#include <set>

// The blur is a shader: it shows on OpenGL alone.
using BackdropTest = EditorFixture;

TEST_F(BackdropTest, WhatPassesBehindABarIsBlurred)
{
    ASSERT_EQ(QQuickWindow::graphicsApi(), QSGRendererInterface::OpenGL);
    QJsonArray document;
    for (int i = 0; i < 30; ++i) {
        QJsonObject row = element(QString::number(i), "All", i % 2 ? "#000000FF" : "#FFFFFFFF");
        row["name"] = row["description"] = "";
        document.append(row);
    }
    writeDocument(document);
    start();
    ASSERT_TRUE(QTest::qWaitFor([this] { // the effect is loaded once the renderer is known
        return item("_bottomView")->findChild<QQuickItem *>("blur") != nullptr;
    }));

    // A column left of the Save button, across an edge between rows.
    table().parentItem()->parentItem()->setProperty("contentY", -15.0);
    settle();
    const QImage picture = grab();
    const auto shades = [&](int top, int bottom) {
        std::set<int> levels;
        for (int y = top; y < bottom; ++y)
            levels.insert(qGray(picture.pixel(20, y)));
        return levels.size();
    };
    EXPECT_LE(shades(400, 500), 6U) << "rows themselves are sharp";
    EXPECT_GE(shades(520, 566), 20U) << "behind the bar they melt into one another";
}
