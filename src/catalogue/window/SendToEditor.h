// Sending a kept theme to an editor that is up: it is installed, and its choices take the place of
// those in the editor.
#pragma once

#include <QString>

#include <functional>
#include <memory>
#include <system_error>

class CustomViewController;
struct EditorFolders;

/// At once, under the editor's busy box; asks nobody. `noteInstalled` remembers that the user's own
/// theme is installed now. The editor's strip says what went wrong, or where the theme is.
void sendToEditor(const std::shared_ptr<CustomViewController> &editor, const EditorFolders &folders,
                  const QString &name, const std::function<std::error_code()> &noteInstalled);
