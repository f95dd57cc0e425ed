// Sending what the editor edits to a phone.
#pragma once

#include <QObject>

class CustomViewController;

class EditorSending : public QObject
{
    Q_OBJECT

public:
    EditorSending(CustomViewController &editor, QString documents);

    /// Lays the page over the stage. What is not saved yet, is saved when it is sent.
    void showPage();

private:
    CustomViewController &_editor;
    const QString _documents;
};
