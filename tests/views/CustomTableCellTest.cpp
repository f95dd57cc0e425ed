#include "views/CustomTableCell.h"

#include "platform/QMLViews.h"
#include "views/BlurView.h"

#include <QFont>

#include <gtest/gtest.h>

TEST(CustomTableCell, LaysItsLabelsOutAtEverySize)
{
    QQmlEngine engine;
    QMLViews::prepareEngine(engine);
    const std::unique_ptr<CustomTableCell> cell(
        CustomTableCell::initWithStyle(CustomTableCell::Style::Subtitle, "id", engine));
    cell->setFrame({0, 7, 320, 50}); // as large as it is made
    EXPECT_EQ(cell->colorLabel()->frame(), QRectF(245, 0, 70, 15));
    cell->setFrame({0, 7, 900, 44});
    EXPECT_EQ(cell->name()->frame(), QRectF(5, 0, 840, 24));
    EXPECT_EQ(cell->description()->frame(), QRectF(5, 19, 895, 25));
    EXPECT_EQ(cell->colorLabel()->frame(), QRectF(825, 0, 70, 15));

    // Pixels, alignment, fitting and wrapping of the texts.
    QStringList types;
    for (const QQuickItem *text : cell->childItems())
        if (text->property("label").isValid())
            types += QString("%1 %2 %3 %4")
                         .arg(text->property("font").value<QFont>().pixelSize())
                         .arg(text->property("horizontalAlignment").toInt())
                         .arg(text->property("fontSizeMode").toInt())
                         .arg(text->property("wrapMode").toInt());
    EXPECT_EQ(types, (QStringList{"21 1 1 0", "12 1 3 4", "9 2 0 0"}));

    UITableViewCell &base = *cell;
    EXPECT_EQ(base.style(), UITableViewCell::Style::Subtitle);
    for (const bool selected : {true, false, true}) // the first makes the mark
        base.setSelected(selected, false);
    const QQuickItem *mark = cell->childItems().back()->childItems().front();
    EXPECT_EQ(mark->opacity(), 1.0);
    base.setSelected(false, true);
    EXPECT_EQ(mark->opacity(), 1.0) << "it has just begun to fade";
    base.setSelected(true, false);
    base.setSelected(false, false);
    EXPECT_EQ(mark->opacity(), 0.0);
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
    view.setToolbar(nullptr);
    view.setBlurTintColor(Qt::blue); // goes nowhere
}
