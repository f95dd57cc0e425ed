// What the editor says about colours that are hard to see: marks on its rows, and a page that lists
// them all and mends them.
#pragma once

#include "editor/RowFindings.h"

#include <memory>

class CustomViewController;

class EditorFindings : public QObject
{
    Q_OBJECT

public:
    /// After the editor has loaded its document.
    explicit EditorFindings(CustomViewController &editor);

    /// Looks for the first time, which takes longer than a row may wait for, and marks the rows.
    void look();
    /// What is found of the element, in words; empty when all is well, and before the first look.
    QString words(int index) { return _rows ? _rows->words(index) : QString(); }

    /// Lays the page over the stage.
    void showPage();

private:
    void markRows();
    void open(int index);

    CustomViewController &_editor;
    std::unique_ptr<RowFindings> _rows; // since the first look
};
