#include "theme/ThemeDraft.h"

#include "platform/foundation/NSFileManager.h"
#include "platform/foundation/NSLog.h"
#include "platform/foundation/ThreadAnnotations.h"

#include <QDateTime>
#include <QFileInfo>
#include <QUuid>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;
using Kind = NSFileManager::Kind;

/// An unsaved choice, by what names its element in the next program too.
struct DraftEntry {
    QString key;
    int index;
    ElementChoice choice;
};

namespace
{
QString draftsFolder(const QString &documents)
{
    return documents + "/Drafts"_L1;
}

QString draftIn(const QString &folder)
{
    return folder + "/Draft.plist"_L1;
}

std::vector<DraftEntry> entriesOf(const ThemeDocument &document)
{
    std::vector<DraftEntry> entries;
    for (const auto &[index, choice] : document.unsavedChanges())
        entries.push_back({document.record(index).key, index, choice});
    return entries;
}

QByteArray bytesOf(const std::vector<DraftEntry> &entries)
{
    QVariantList changes;
    for (const DraftEntry &entry : entries) {
        QVariantMap change{{u"key"_s, entry.key}, {u"index"_s, qint64(entry.index)}};
        if (entry.choice.color.isValid())
            change.insert(u"color"_s, entry.choice.color);
        if (entry.choice.value.isValid())
            change.insert(u"value"_s, entry.choice.value);
        changes.append(change);
    }
    PropertyDictionary dictionary;
    dictionary.setValue(u"changes"_s, changes);
    return PropertyList::writeDictionary(dictionary);
}

/// Where the list of elements has been changed meanwhile, the first one with the key.
std::optional<int> indexFor(const QVariantMap &entry, const ElementDataSource &elements)
{
    const QString key = entry.value(u"key"_s).toString();
    const qint64 index = entry.value(u"index"_s, -1).toLongLong();
    const auto &records = elements.tableSource();
    if (index >= 0 && size_t(index) < records.size() && records[size_t(index)].key == key)
        return int(index);
    const auto indexes = elements.indexesOfKey(key);
    return indexes.empty() ? std::nullopt : std::optional(indexes.front());
}

/// What a draft would change; nothing where it cannot be read.
std::optional<ThemeDocument::Changes> changesIn(const QByteArray &bytes,
                                                const ElementDataSource &elements)
{
    const auto dictionary = PropertyList::readDictionary(bytes);
    const QVariant *list = dictionary ? dictionary->find(u"changes"_s) : nullptr;
    if (!list || list->typeId() != QMetaType::QVariantList)
        return std::nullopt;
    ThemeDocument::Changes changes;
    for (const QVariant &item : list->toList()) {
        const QVariantMap entry = item.toMap();
        const auto index = indexFor(entry, elements);
        if (!index)
            continue;
        const ElementChoice choice{entry.value(u"color"_s), entry.value(u"value"_s)};
        if (!(choice == elements.tableSource()[size_t(*index)].choice()))
            changes.push_back({*index, choice});
    }
    return changes;
}

void logFault(const QString &what, const QString &path, const std::error_code &error)
{
    if (error)
        NSLog(u"%@ %@"_s, {what, NSFileManager::withReason(path, error)});
}
} // namespace

std::shared_ptr<AbandonedDraft> AbandonedDraft::find(const QString &documents,
                                                     const ElementDataSource &elements)
{
    std::shared_ptr<AbandonedDraft> newest;
    QDateTime newestTime;
    const QString all = draftsFolder(documents);
    if (NSFileManager::itemAtPath(all).kind != Kind::Folder)
        return newest;
    for (const QString &name : NSFileManager::contentsOfDirectoryAtPath(all).names) {
        const QString folder = all + u'/' + name;
        const QString file = draftIn(folder);
        const QString aside = folder + "/Draft.unreadable.plist"_L1;
        const auto [lock, lockError] = NSFileManager::lockFolderAtPath(folder);
        if (lockError || NSFileManager::itemAtPath(folder).kind != Kind::Folder)
            continue; // somebody is at it, or it is none of ours
        const auto [bytes, error] = NSFileManager::contentsAtPath(file);
        if (error && !NSFileManager::isMissing(error))
            continue; // perhaps another time
        const auto changes = error ? ThemeDocument::Changes() : changesIn(bytes, elements);
        const QDateTime time = QFileInfo(file).lastModified();
        if (!changes) {
            NSLog(u"A draft cannot be read and is set aside: %@"_s, {aside});
            logFault(u"Cannot set aside"_s, file, NSFileManager::moveItemAtPath(file, aside));
        } else if (!changes->empty() && (!newest || time > newestTime)) {
            newest.reset(new AbandonedDraft(folder, lock, *changes));
            newestTime = time;
        } else if (changes->empty() && !NSFileManager::fileExistsAtPath(aside)) {
            NSFileManager::removeItemAtPath(folder);
        }
    }
    return newest;
}

void AbandonedDraft::remove()
{
    logFault(u"Cannot remove the draft"_s, _folder, NSFileManager::removeItemAtPath(_folder));
}

/// The main thread leaves the newest entries here; all else is the queue's.
class DraftKeeper::Desk
{
public:
    explicit Desk(const QString &documents) : _documents(documents) {}

    void leave(std::vector<DraftEntry> entries)
    {
        const MutexLock lock(_mutex);
        _next = std::move(entries);
    }

    /// Brings the file in step with what was left last. True when it is.
    bool work()
    {
        std::optional<std::vector<DraftEntry>> entries;
        {
            const MutexLock lock(_mutex);
            entries.swap(_next);
        }
        if (!entries) // the block before took it, together with its own
            return _isInStep;
        const auto error = entries->empty() ? removeFolder() : write(bytesOf(*entries));
        logFault(u"Cannot keep the draft"_s, _folder, error);
        _isInStep = !error;
        return _isInStep;
    }

private:
    std::error_code write(const QByteArray &bytes)
    {
        // A program that starts just now may take an empty folder for an abandoned one.
        for (int attempt = 0; !_lock && attempt < 3; ++attempt)
            if (const auto error = makeFolder())
                return error;
        return _lock ? NSFileManager::writeToFile(draftIn(_folder), bytes)
                     : std::make_error_code(std::errc::resource_unavailable_try_again);
    }

    std::error_code makeFolder()
    {
        const QString all = draftsFolder(_documents);
        _folder = all + u'/' + QUuid::createUuid().toString(QUuid::Id128);
        if (NSFileManager::itemAtPath(all).kind == Kind::Link)
            return std::make_error_code(std::errc::too_many_symbolic_link_levels);
        if (const auto error = NSFileManager::createDirectoryAtPath(_folder))
            return error;
        _lock = NSFileManager::lockFolderAtPath(_folder).hold;
        return {};
    }

    std::error_code removeFolder()
    {
        return std::exchange(_lock, nullptr) ? NSFileManager::removeItemAtPath(_folder)
                                             : std::error_code();
    }

    const QString _documents;
    Mutex _mutex;
    std::optional<std::vector<DraftEntry>> _next GUARDED_BY(_mutex); // not taken yet
    QString _folder;
    std::shared_ptr<const void> _lock; // while there is a folder
    bool _isInStep = true;
};

DraftKeeper::DraftKeeper(ThemeDocument &document, const QString &documents)
    : _document(document), _desk(std::make_shared<Desk>(documents))
{
    connect(&document, &ThemeDocument::changed, this, &DraftKeeper::updateSoon);
    connect(&document, &ThemeDocument::saved, this, &DraftKeeper::updateSoon);
}

DraftKeeper::~DraftKeeper()
{
    update();
}

DispatchQueue &DraftKeeper::queue()
{
    if (!_queue)
        _queue = std::make_unique<DispatchQueue>("io.tintloom.draftqueue");
    return *_queue;
}

void DraftKeeper::updateSoon()
{
    if (!std::exchange(_isUpdateDue, true))
        QMetaObject::invokeMethod(this, &DraftKeeper::update, Qt::QueuedConnection);
}

void DraftKeeper::update()
{
    if (!std::exchange(_isUpdateDue, false))
        return;
    _desk->leave(entriesOf(_document));
    queue().async([desk = _desk] { desk->work(); });
}

void DraftKeeper::bringBack(std::shared_ptr<AbandonedDraft> draft, const QString &name)
{
    _document.changeAll(draft->changes(), name);
    update();
    queue().async([desk = _desk, draft = std::move(draft)] {
        if (desk->work())
            draft->remove();
    });
}

void DraftKeeper::discard(std::shared_ptr<AbandonedDraft> draft)
{
    queue().async([draft = std::move(draft)] { draft->remove(); });
}
