// The preview: a pane beside the stage, or a page over it that can be closed.
#pragma once

#include "platform/UIViewController.h"
#include "preview/window/PreviewModel.h"

class PreviewController final : public UIViewController
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the program's start")
    Q_PROPERTY(PreviewModel *model READ model CONSTANT FINAL)
    Q_PROPERTY(bool closable READ isClosable CONSTANT FINAL)
    Q_PROPERTY(bool takesKeys READ takesKeys NOTIFY takesKeysChanged FINAL)

public:
    /// The model must outlive the controller's view.
    static std::shared_ptr<PreviewController> initPane(PreviewModel &model);
    static std::shared_ptr<PreviewController> initPage(PreviewModel &model);

    // In the key window.
    /// Lays the page over the stage, until its button or Escape closes it.
    static void presentPage(PreviewModel &model);
    /// Takes it away, after whatever is being done now.
    static void dismissPage();
    /// Brings the pane beside the stage, or takes it away; where there is no room, the page.
    static void toggle(PreviewModel &model);

    PreviewModel *model() const { return &_model; }
    bool isClosable() const { return _isClosable; }
    /// Whether Tab leads here: not beside something that lies over the editor.
    bool takesKeys() const { return _isClosable || _model.isInteractive(); }
    /// False for a pane, which stays.
    Q_INVOKABLE bool close();

signals:
    void takesKeysChanged();

protected:
    const char *viewFile() const override { return "preview/window/PreviewPane.qml"; }

private:
    PreviewController(PreviewModel &model, bool isClosable);

    PreviewModel &_model;
    const bool _isClosable;
};
