// What ties the editor's chooser to the colours at hand: a page of them, and the memory of those
// that were chosen.
#pragma once

#include "chooser/ColorPickerViewController.h"

class CustomViewController;

class EditorColors : public QObject
{
    Q_OBJECT

public:
    EditorColors(CustomViewController &editor, QString documents);

    /// Shows the page when the chooser asks for it, and picks there what was chosen on it.
    void serve(ColorPickerViewController &chooser);
    /// The colour was chosen for an element.
    void remember(const UIColor &color);

private:
    void showPage(ColorPickerViewController &chooser);

    CustomViewController &_editor;
    const QString _documents;
};
