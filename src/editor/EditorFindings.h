// What the editor says about colours that are hard to see: marks on its rows, and a page that lists
// them all and mends them.
#pragma once

#include "editor/RowFindings.h"

class CustomViewController;

class EditorFindings : public QObject
{
    Q_OBJECT

public:
    /// After the editor has loaded its document.
    explicit EditorFindings(CustomViewController &editor);

    /// What is found of the element, in words; empty when all is well.
    QString words(int index) { return _rows.words(index); }

    /// Lays the page over the stage.
    void showPage();

private:
    void markRows();
    void open(int index);

    CustomViewController &_editor;
    RowFindings _rows;
};
