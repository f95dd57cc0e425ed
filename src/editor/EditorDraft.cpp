#include "editor/EditorDraft.h"

#include <utility>

EditorDraft::EditorDraft(ThemeDocument &document, const QString &documents,
                         ScreenOverlays &overlays)
    : _document(document), _documents(documents), _overlays(overlays)
{
}

void EditorDraft::offer()
{
    if (_document.elements().status() != ElementDataSource::Status::Loaded ||
        std::exchange(_wasSought, true))
        return;
    _abandoned = AbandonedDraft::find(_documents, _document.elements());
    if (isOffered())
        _overlays.showQuietly(
            tr("You have changes that are not in the theme yet"),
            {{tr("Bring Back"), [this] { bringBack(); }}, {tr("Discard"), [this] { discard(); }}});
}

void EditorDraft::bringBack()
{
    _overlays.setNotice({});
    if (const auto draft = std::exchange(_abandoned, nullptr))
        _keeper.bringBack(draft, tr("Bring Back Changes"));
}

void EditorDraft::discard()
{
    _overlays.setNotice({});
    if (const auto draft = std::exchange(_abandoned, nullptr))
        _keeper.discard(draft);
}
