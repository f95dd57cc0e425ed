// The command line: what the program is asked to do, and where.
//
// Parsing needs no application object and touches no global state but the environment.
#pragma once

#include "app/GenerateOptions.h"
#include "color/ColorVision.h"
#include "preview/PreviewPicture.h"
#include "ssh/SshModule.h"
#include "theme/ThemeLocations.h"

#include <QSizeF>
#include <QString>
#include <QStringList>

#include <optional>

namespace CommandLine
{
enum class Command {
    Window,
    List,
    Set,
    Save,
    Restore,
    Themes,
    Install,
    Edit,
    Keep,
    Rename,
    Duplicate,
    Remove,
    Import,
    Export,
    Share,
    Preview,
    Check,
    Send,
    Palette,
    Generate
};

struct Options {
    Command command = Command::Window;
    QString packageRoot; // this and the next two: absolute paths of folders
    QString documents;
    QString resources;
    double scale = 2.0;           // pixels per point of the written images, 1 to 8
    std::optional<QSizeF> screen; // points; of the stage
    bool preview = true;          // window: whether it may stand beside the stage
    bool json = false;            // list, themes, check, palette
    bool fix = false;             // check
    bool catalogue = false;       // window
    bool replace = false;         // keep, import, export
    bool undo = false;            // remove
    QString theme; // install, edit, keep, rename, duplicate, remove: the name, as typed;
                   // preview, check, export, share, send, generate: or a path, or empty; import: a
                   // path or a shared text
    QString newName;                      // rename, duplicate: as typed; import: or empty
    QStringList edits;                    // set, save: "KEY=VALUE", as typed
    QStringList pictures;                 // save: "KEY=FILE", as typed
    PreviewView view = PreviewView::Both; // this and the next two: preview
    Eyes eyes = Eyes::Normal;
    SshAddress phone; // this and the next four: send
    QString folder;   // of themes, on the phone
    std::optional<QString> name;
    QString acceptHost; // fingerprint; empty: ask
    bool back = false;
    QString picture;          // palette: a file, as typed
    GenerateOptions generate; // generate
    QString out;  // preview: the absolute path of a file, or "-" for standard output; export: of
                  // a file or folder
    QString open; // window: the absolute path of a theme to show, or empty
    QString qr;   // share: the absolute path of a file, or empty
};

struct Outcome {
    std::optional<Options> options; // none: print the text and leave
    QString text;                   // whole lines
    int exitCode = 0; // 0: the text is for standard output; else 2, for standard error
};

/// Reads the arguments, the program's own name first, and the environment. An option beats its
/// environment variable, and an empty variable counts as unset. Set the application's name before
/// this: the default documents folder depends on it.
Outcome parse(const QStringList &arguments);

/// Where themes go unless somebody says otherwise: the folder on the phone, where the one above it
/// is there; else a folder of that name among the user's documents, which nobody has made yet
/// perhaps.
QString defaultPackageRoot(const QString &onPhone = ThemeLocations::phonePackageRoot());
} // namespace CommandLine
