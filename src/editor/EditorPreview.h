// What ties the editor to the previews: they follow its document, outline the element that it is
// at, and a tap on a part of them opens that element here, by the same way as a tap on its row.
#pragma once

#include "platform/foundation/NSIndexPath.h"
#include "preview/window/PreviewModel.h"

#include <QObject>
#include <QPointer>
#include <QtQml/qqmlregistration.h>

#include <memory>

class CustomViewController;

class EditorPreview : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Belongs to the editor")
    /// Whether a preview can be asked for, because none stands beside the stage.
    Q_PROPERTY(bool offered READ isOffered NOTIFY offeredChanged FINAL)

public:
    explicit EditorPreview(CustomViewController &editor);

    /// Null: no previews. Set it before the view is loaded.
    void setModel(PreviewModel *model);
    PreviewModel *model() const { return _model; }

    void viewDidLoad();
    void viewDidAppear();
    void viewWillDisappear();
    /// Before the editor dies: it tells of much while it does.
    void stopWatching() { _watch.reset(); }

    /// The sheet that has just come up belongs to that row.
    void noteSheet(NSIndexPath row);

    bool isOffered() const;
    /// Lays the preview over the stage; nothing where none is offered.
    Q_INVOKABLE void showPage();

signals:
    void offeredChanged();

private:
    void updateAttention();
    void updateInteractive();
    void open(const QString &key);

    CustomViewController &_editor;
    std::unique_ptr<QObject> _watch = std::make_unique<QObject>(); // of what the editor tells
    QPointer<PreviewModel> _model;
    NSIndexPath _sheetRow; // while its sheet is up
};
