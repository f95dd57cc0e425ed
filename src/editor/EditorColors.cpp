#include "editor/EditorColors.h"

#include "chooser/ColorsController.h"
#include "editor/CustomViewController.h"
#include "platform/UIWindow.h"
#include "platform/foundation/NSLog.h"
#include "theme/ColorText.h"

EditorColors::EditorColors(CustomViewController &editor, QString documents)
    : _editor(editor), _documents(std::move(documents))
{
}

void EditorColors::serve(ColorPickerViewController &chooser)
{
    connect(&chooser, &ColorPickerViewController::themeColorsTapped, this,
            [this, &chooser] { showPage(chooser); });
}

void EditorColors::showPage(ColorPickerViewController &chooser)
{
    const auto page = ColorsController::init(ColorsAtHand::recent(_documents),
                                             ColorsAtHand::inTheme(_editor.source()));
    const auto close = [] { UIWindow::keyWindow()->dismissViewController(); };
    connect(page.get(), &ColorsController::closeTapped, this, close);
    connect(page.get(), &ColorsController::chosen, &chooser,
            [&chooser, close](const QString &text) {
                chooser.selectColorText(text);
                close();
            });
    UIWindow::keyWindow()->presentViewController(page);
}

void EditorColors::remember(const UIColor &color)
{
    if (const auto error = ColorsAtHand::remember(hexStringForColor(color), _documents))
        NSLog("Cannot remember the colors used last: %@",
              {QString::fromStdString(error.message())});
}
