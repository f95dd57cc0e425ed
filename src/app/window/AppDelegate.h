// The program's start: one window, and a navigation stack with the editor as its root, or the
// catalogue.
#pragma once

#include "catalogue/window/EditorCatalogue.h"
#include "editor/CustomViewController.h"
#include "platform/UIApplication.h"
#include "platform/UIWindow.h"
#include "preview/window/PreviewModel.h"

#include <memory>
#include <optional>

class AppDelegate final : public UIApplicationDelegate
{
public:
    enum class Root { Editor, Catalogue };
    /// How the window starts.
    struct Start {
        Root root = Root::Editor;
        /// Points. Without one it has the main screen's size, which the stage keeps.
        std::optional<QSize> windowSize = {};
        /// Whether the preview may stand beside the stage; nothing: as the user left it.
        std::optional<bool> showsPreview = {};
        /// A theme to show when the first frame has been drawn, to be kept or not: the path of a
        /// file or folder.
        QString open = {};
    };

    explicit AppDelegate(const EditorFolders &folders) : AppDelegate(folders, Start()) {}
    AppDelegate(const EditorFolders &folders, const Start &start) : _folders(folders), _start(start)
    {
    }
    /// A window wide enough for the preview beside the stage; nothing where the display is not.
    static std::optional<QSize> wideWindow();

    /// Recovers an interrupted save first. False when that cannot be done, or when the editor is
    /// the root and the elements cannot be read at all; the log says why.
    bool didFinishLaunchingWithOptions() override;

    UIWindow *window() const { return _window.get(); }
    void setWindow(std::unique_ptr<UIWindow> window) { _window = std::move(window); }

private:
    void addPreview();
    void openGiven();
    void setRoot(std::shared_ptr<UIViewController> controller);

    const EditorFolders _folders;
    const Start _start;
    PreviewModel _preview;
    std::unique_ptr<UIWindow> _window;
    std::unique_ptr<EditorCatalogue> _editorCatalogue; // where the editor is the root
};
