#include "views/CustomTableCell.h"

#include "platform/QMLViews.h"
#include "views/BlurView.h"

#include <gtest/gtest.h>

TEST(CustomTableCell, LaysItsLabelsOutAtEverySize)
{
    QQmlEngine engine;
    QMLViews::prepareEngine(engine);
    const std::unique_ptr<CustomTableCell> cell(
        CustomTableCell::initWithStyle(CustomTableCell::Style::Subtitle, "id", engine));
    const struct {
        QSizeF size;
        QRectF name, description, caption;
    } cases[] = {
        {{320, 50}, {5, 0, 260, 30}, {5, 25, 315, 25}, {245, 0, 70, 15}},
        {{900, 44}, {5, 0, 840, 24}, {5, 19, 895, 25}, {825, 0, 70, 15}},
    };
    for (const auto &c : cases) {
        cell->setFrame({QPointF(0, 7), c.size});
        EXPECT_EQ(cell->name()->frame(), c.name);
        EXPECT_EQ(cell->description()->frame(), c.description);
        EXPECT_EQ(cell->colorLabel()->frame(), c.caption);
    }
}

TEST(BlurView, PassesItsTintOnAndHasOneToolbarOnly)
{
    BlurView view;
    view.setup();
    EXPECT_EQ(view.findChildren<UIToolbar *>().size(), 1);
    view.setBlurTintColor(Qt::red);
    EXPECT_EQ(view.toolbar()->barTintColor(), QColor(Qt::red));
    EXPECT_FALSE(view.blurTintColor().isValid());
    view.setFrame({10, 20, 300, 50});
    EXPECT_EQ(view.toolbar()->frame(), QRectF(0, 0, 300, 50));
}
