#include "app/PreviewCommand.h"

#include "app/ExitStatus.h"
#include "app/StandardStreams.h"
#include "app/ThemeSubject.h"
#include "platform/foundation/NSFileManager.h"

#include <QBuffer>
#include <QGuiApplication>

using namespace Qt::StringLiterals;

namespace
{
/// PNG; empty when there is no memory for the picture.
QByteArray drawn(const PreviewPalette &palette, const CommandLine::Options &options)
{
    // No display is asked for, even where there is one: nothing is shown, and no desktop's settings
    // change the picture. A platform theme might ask for a display on its own.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qunsetenv("QT_QPA_PLATFORMTHEME");
    int argc = 1;
    char name[] = "tintloom";
    char *argv[] = {name, nullptr};
    const QGuiApplication application(argc, argv);
    QByteArray png;
    QBuffer buffer(&png);
    seenBy(options.eyes, previewPicture(palette, options.view, options.scale)).save(&buffer, "PNG");
    return png;
}
} // namespace

int runPreview(const CommandLine::Options &options)
{
    const auto [elements, status] = themeSubject(options);
    if (!elements)
        return status;
    const QByteArray png = drawn(PreviewPalette::fromElements(*elements), options);
    if (png.isEmpty()) {
        complain(u"not enough memory for the picture"_s);
        return ExitStatus::failed;
    }
    if (options.out == "-"_L1)
        return print(png);
    if (const auto error = NSFileManager::writeToFile(options.out, png)) {
        complain(u"cannot write %1"_s.arg(NSFileManager::withReason(options.out, error)));
        return ExitStatus::failed;
    }
    return print(options.out.toUtf8() + '\n');
}
