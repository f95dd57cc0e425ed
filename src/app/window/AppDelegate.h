// The program's start: one window, and a navigation stack with the editor as its root, or the
// catalogue.
#pragma once

#include "editor/CustomViewController.h"
#include "platform/UIApplication.h"
#include "platform/UIWindow.h"

#include <memory>

class AppDelegate final : public UIApplicationDelegate
{
public:
    enum class Root { Editor, Catalogue };

    explicit AppDelegate(const EditorFolders &folders, Root root = Root::Editor)
        : _folders(folders), _root(root)
    {
    }

    /// Recovers an interrupted save first. False when that cannot be done, or when the editor is
    /// the root and the elements cannot be read at all; the log says why.
    bool didFinishLaunchingWithOptions() override;

    UIWindow *window() const { return _window.get(); }
    void setWindow(std::unique_ptr<UIWindow> window) { _window = std::move(window); }

private:
    void setRoot(std::shared_ptr<UIViewController> controller);

    const EditorFolders _folders;
    const Root _root;
    std::unique_ptr<UIWindow> _window;
};
