// The program's start: one window, and a navigation stack with the editor as its root.
#pragma once

#include "editor/CustomViewController.h"
#include "platform/UIApplication.h"
#include "platform/UIWindow.h"

#include <memory>

class AppDelegate final : public UIApplicationDelegate
{
public:
    explicit AppDelegate(const EditorFolders &folders) : _folders(folders) {}

    /// Recovers an interrupted save first. False when that cannot be done, or when the elements
    /// cannot be read at all; the log says why.
    bool didFinishLaunchingWithOptions() override;

    UIWindow *window() const { return _window.get(); }

private:
    const EditorFolders _folders;
    std::unique_ptr<UIWindow> _window;
};
