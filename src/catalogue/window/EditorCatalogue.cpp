#include "catalogue/window/EditorCatalogue.h"

#include "catalogue/SelectedTheme.h"
#include "catalogue/window/MainViewController.h"
#include "catalogue/window/SendToEditor.h"
#include "platform/UINavigationController.h"

EditorCatalogue::EditorCatalogue(const std::shared_ptr<CustomViewController> &editor,
                                 const EditorFolders &folders, PreviewModel *preview)
    : _editor(editor), _folders(folders), _preview(preview)
{
    connect(editor->themes(), &EditorThemes::themesTapped, this, &EditorCatalogue::open);
    connect(editor->themes(), &EditorThemes::editWanted, this, &EditorCatalogue::edit);
}

void EditorCatalogue::open()
{
    const auto editor = _editor.lock();
    UINavigationController *const navigation = editor->navigationController();
    if (navigation->topViewController() != editor.get())
        return;
    const auto catalogue = MainViewController::initFromEditor(_folders, editor);
    catalogue->setPreview(_preview);
    catalogue->setTitle(tr("Themes"));
    navigation->pushViewController(catalogue, true);
}

void EditorCatalogue::edit(const QString &name)
{
    const auto send = [this, name] {
        sendToEditor(_editor.lock(), _folders, name, [preferences = _folders.theme.preferences()] {
            return SelectedTheme(preferences).set(ThemeRecord::ownTheme());
        });
    };
    if (!_editor.lock()->document().hasUnsavedChanges())
        return send();
    _question =
        Question::ask(tr("Edit %1 instead?").arg(name),
                      tr("The changes that you have not saved will be lost."), tr("Edit"), send);
}
