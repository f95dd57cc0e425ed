// What the editor says about colours that are hard to see: marks on its rows.
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

private:
    void markRows();

    CustomViewController &_editor;
    RowFindings _rows;
};
