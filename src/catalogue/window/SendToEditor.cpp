#include "catalogue/window/SendToEditor.h"

#include "catalogue/ThemeInstallation.h"
#include "editor/CustomViewController.h"

void sendToEditor(const std::shared_ptr<CustomViewController> &editor, const EditorFolders &folders,
                  const QString &name, const std::function<std::error_code()> &noteInstalled)
{
    const auto begin = [name, locations = folders.theme] {
        return beginEditingKept(name, locations);
    };
    const auto finish = [editor = editor.get(), locations = folders.theme,
                         noteInstalled](const ThemeInstallation &installation) {
        SaveReport report = copyTheme(installation);
        editor->removeLoader();
        editor->overlays()->showOutcome(report.notice(), report.copyFrom(locations));
        if (!report.refusal.isEmpty())
            return;
        if (const auto error = noteInstalled()) {
            report.addFailure(locations.preferences(), error);
            editor->overlays()->showOutcome(report.notice(), {});
        }
        editor->startAnew(); // the installation still locks the folders
    };
    editor->work().run(CustomViewController::tr("Saving theme..."), editor, begin, finish);
}
