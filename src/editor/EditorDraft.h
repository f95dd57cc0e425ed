// What ties the editor to drafts: it keeps one of its own document, and offers the one that an
// ended program has left.
#pragma once

#include "theme/ThemeDraft.h"
#include "views/ScreenOverlays.h"

#include <memory>

class EditorDraft : public QObject
{
    Q_OBJECT

public:
    /// Both must outlive this.
    EditorDraft(ThemeDocument &document, const QString &documents, ScreenOverlays &overlays);

    /// Looks for a draft that an ended program has left, the first time it is called.
    void offer();
    /// Whether one is on offer; and the answers to that.
    bool isOffered() const { return _abandoned != nullptr; }
    void bringBack();
    void discard();

private:
    ThemeDocument &_document;
    const QString _documents;
    ScreenOverlays &_overlays;
    DraftKeeper _keeper{_document, _documents};
    std::shared_ptr<AbandonedDraft> _abandoned; // while it is on offer
    bool _wasSought = false;
};
