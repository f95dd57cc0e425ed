#include "support/EditorFixture.h"

#include <algorithm>

// The blur is a shader: it shows on OpenGL alone.
using BackdropTest = EditorFixture;

TEST_F(BackdropTest, AllThatIsBehindABarIsBlurred)
{
    ASSERT_EQ(QQuickWindow::graphicsApi(), QSGRendererInterface::OpenGL);
    QJsonArray document; // the pattern of the ground and texts show through every other row
    for (int i = 0; i < 30; ++i)
        document.append(element(QString::number(i), "All", i % 2 ? "#000000FF" : "#00000000"));
    writeDocument(document);
    start();
    ASSERT_TRUE(QTest::qWaitFor([this] { // the effect is loaded once the renderer is known
        return item("_bottomView")->findChild<QQuickItem *>("blur") != nullptr;
    }));
    item("_previewButton")->setVisible(false); // it hides the bar's end
    table().parentItem()->parentItem()->setProperty("contentY", 15.0);
    settle();
    const QImage picture = grab();
    const auto steepest = [&](QRect area) {
        int step = 0;
        for (int y = area.top(); y < area.bottom(); ++y)
            for (int x = area.left(); x < area.right(); ++x)
                for (const QPoint next : {QPoint(x + 1, y), QPoint(x, y + 1)})
                    step = std::max(
                        step, std::abs(qGray(picture.pixel(x, y)) - qGray(picture.pixel(next))));
        return step;
    };
    EXPECT_GT(steepest({0, 440, 75, 50}), 100) << "rows themselves are sharp";
    for (const QRect bar : {QRect(0, 0, 320, 20), QRect(0, 518, 75, 50)})
        EXPECT_LT(steepest(bar), 20) << "behind the bar at " << bar.y();
}
