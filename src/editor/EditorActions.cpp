#include "editor/EditorActions.h"

#include "editor/CustomViewController.h"
#include "preview/window/PreviewController.h"
#include "theme/ColorNotation.h"
#include "theme/ElementPicture.h"

#include <QClipboard>
#include <QGuiApplication>

#include <algorithm>
#include <iterator>

namespace
{
QString tr(const char *text)
{
    return CustomViewController::tr(text);
}

Actions undoAndRedo(CustomViewController &editor)
{
    ThemeDocument *const document = &editor.document();
    const bool isFree = !editor.isLoading() && !editor.isChooserOpen();
    return {
        {tr("Undo %1").arg(document->undoName()),
         [=, &editor] { editor.reveal(document->undo()); },
         isFree && document->canUndo(),
         {Qt::CTRL | Qt::Key_Z}},
        {tr("Redo %1").arg(document->redoName()),
         [=, &editor] { editor.reveal(document->redo()); },
         isFree && document->canRedo(),
         {Qt::CTRL | Qt::SHIFT | Qt::Key_Z, Qt::CTRL | Qt::Key_Y}},
    };
}

/// The colour of one element for the others that were of its old colour, too.
Action shareColor(ThemeDocument *document, int index)
{
    const ThemeDocument::Namesakes found = document->namesakes(index);
    const QString title = tr("Use This Color for %1 More That Were %2");
    return {title.arg(found.indexes.size()).arg(found.colorText),
            [=] {
                ThemeDocument::Changes changes;
                for (const int other : found.indexes)
                    changes.push_back(
                        {other, {document->record(index).color, document->record(other).value}});
                document->changeUnlocked(std::move(changes), tr("Change %1").arg(found.colorText));
            },
            !found.indexes.empty()};
}
} // namespace

Actions EditorActions::forTheme(CustomViewController &editor)
{
    Actions actions = undoAndRedo(editor);
    EditorPreview *const preview = editor.preview();
    const bool isBeside = preview->model() && !preview->isOffered();
    actions.push_back({isBeside ? tr("Hide Preview") : tr("Preview"),
                       [=] { PreviewController::toggle(*preview->model()); },
                       preview->model() && !editor.isLoading(),
                       {Qt::CTRL | Qt::Key_P}});
    actions.push_back({tr("Check Colors"), [&editor] { editor.findings()->showPage(); },
                       !editor.isLoading() && !editor.isChooserOpen()});
    EditorGenerator *const generator = editor.generator();
    actions.push_back(
        {tr("Theme from a Color\u2026"), [=] { generator->showPage(); }, generator->isOffered()});
    actions.push_back(
        {tr("From a Photo\u2026"), [=] { generator->askForPhoto(); }, generator->isOffered()});
    std::ranges::move(editor.themes()->actions(), std::back_inserter(actions));
    // Its strip may have made room for another one.
    actions.push_back({tr("Bring Back Unsaved Changes"),
                       [draft = editor.draft()] { draft->bringBack(); },
                       editor.draft()->isOffered()});
    actions.push_back({tr("Save Theme"),
                       [&editor] { editor.save(); },
                       !editor.isLoading() && !editor.isChooserOpen(),
                       {Qt::CTRL | Qt::Key_S}});
    actions.push_back({tr("Send to Phone\u2026"), [&editor] { editor.sending()->showPage(); },
                       !editor.isLoading() && !editor.isChooserOpen()});
    return actions;
}

Actions EditorActions::forElement(CustomViewController &editor, int index)
{
    ThemeDocument *const document = &editor.document();
    const ElementRecord &record = document->record(index);
    const ElementChoice now = record.choice();
    const ElementChoice standard = document->elements().defaultChoice(index);
    const auto shownColor = record.isChoice() ? std::nullopt : record.shownColor();
    const auto pasted = record.isChoice()
                            ? std::nullopt
                            : colorTextFromNotation(QGuiApplication::clipboard()->text());
    const bool isLocked = document->isLocked(index);

    Actions actions = undoAndRedo(editor);
    actions.push_back({tr("Back to Saved"), [=] { document->resetToSaved(index); },
                       !(document->savedChoice(index) == now)});
    actions.push_back(
        {tr("Back to Default"), [=] { document->resetToDefault(index); }, !(standard == now)});
    actions.push_back({tr("Copy Color"),
                       [=] { QGuiApplication::clipboard()->setText(*shownColor); },
                       shownColor.has_value()});
    actions.push_back({tr("Paste Color"), [=] { document->setColor(index, *pasted); },
                       pasted && *pasted != shownColor});
    EditorGenerator *const generator = editor.generator();
    actions.push_back({tr("Choose a Picture\u2026"), [=] { generator->askForBackground(index); },
                       generator->takesPicture(index)});
    const auto picture = ElementPicture::of(record);
    actions.push_back({tr("Place the Picture"), [=] { generator->place(index, *picture); },
                       picture && generator->takesPicture(index)});
    actions.push_back(shareColor(document, index));
    actions.push_back({isLocked ? tr("Unlock") : tr("Lock"),
                       [=, &editor] { editor.setLocked(index, !isLocked); }});
    return actions;
}
