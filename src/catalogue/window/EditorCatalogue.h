// The catalogue as the editor that the program starts into has it: over the editor, with a way
// back, and what is sent to the editor there comes back to that editor.
#pragma once

#include "editor/CustomViewController.h"
#include "views/Question.h"

#include <QPointer>

/// Belongs to the program's start. The preview model must outlive it.
class EditorCatalogue : public QObject
{
    Q_OBJECT

public:
    /// Serves the editor's actions from now on.
    EditorCatalogue(const std::shared_ptr<CustomViewController> &editor,
                    const EditorFolders &folders, PreviewModel *preview);

private:
    void open();
    /// Asks first where that would lose unsaved changes.
    void edit(const QString &name);

    const std::weak_ptr<CustomViewController> _editor;
    const EditorFolders _folders;
    const QPointer<PreviewModel> _preview;
    std::shared_ptr<Question> _question; // asked last
};
