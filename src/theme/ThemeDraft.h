// The draft: choices that are not in the theme yet, kept for the next start should the program end.
//
//   <documents>/Drafts/<id>/Draft.plist               what is unsaved in one open document
//   <documents>/Drafts/<id>/Draft.unreadable.plist    one that could not be read, set aside
//
// Every open document has a folder of its own, which exists only while something is unsaved, and
// whose lock it holds. A folder that nobody has locked was left by a program that has ended; it is
// offered to the next one that starts, which holds the lock from then on. So two programs at one
// documents folder neither overwrite each other's drafts nor offer one that is still being made.
//
// The file is a property list: "changes" is an array of dictionaries, one for each element whose
// choice is not the saved one. "key" names the element, "index" tells which of several with that
// key (its place in the list of elements); "color" and "value" are its choice, left out where null.
#pragma once

#include "platform/foundation/DispatchQueue.h"
#include "theme/ThemeDocument.h"

#include <QString>

#include <memory>

/// A draft that somebody has left behind. Holds its lock.
class AbandonedDraft
{
public:
    /// The one that was written last, if any holds something that the elements do not have already.
    /// Those that do not are removed, and those that cannot be read are set aside with a log line.
    static std::shared_ptr<AbandonedDraft> find(const QString &documents,
                                                const ElementDataSource &elements);

    /// What was chosen; never empty.
    const ThemeDocument::Changes &changes() const { return _changes; }
    /// Takes it off the disk; any thread. A fault is said in the log, and the draft offered again
    /// to the next program.
    void remove();

private:
    AbandonedDraft(QString folder, std::shared_ptr<const void> lock, ThemeDocument::Changes changes)
        : _folder(std::move(folder)), _lock(std::move(lock)), _changes(std::move(changes))
    {
    }

    const QString _folder;
    const std::shared_ptr<const void> _lock;
    const ThemeDocument::Changes _changes;
};

/// Keeps the draft of a document in step with it: after each change that leaves something unsaved
/// it is written, and it is removed when nothing is. Files are touched on a queue of its own; of
/// changes that come faster than the events or the disk, the last is written. Dies on the main
/// thread, when all is on the disk. What cannot be written is said in the log.
class DraftKeeper final : public QObject
{
    Q_OBJECT

public:
    /// The document must outlive this.
    DraftKeeper(ThemeDocument &document, const QString &documents);
    ~DraftKeeper() override;

    /// Makes the changes of an abandoned draft again, as one step of that name. It goes from the
    /// disk when the document's own draft stands in its place.
    void bringBack(std::shared_ptr<AbandonedDraft> draft, const QString &name);
    void discard(std::shared_ptr<AbandonedDraft> draft);

private:
    class Desk; // what the queue works on
    void updateSoon();
    void update();
    DispatchQueue &queue();

    ThemeDocument &_document;
    const std::shared_ptr<Desk> _desk;
    std::unique_ptr<DispatchQueue> _queue; // made for the first change
    bool _isUpdateDue = false;
};
