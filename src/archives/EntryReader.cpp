#include "archives/EntryReader.h"

#include "archives/EntryPath.h"
#include "archives/NamesInUtf8.h"

#include <QSet>
#include <QStringList>

#include <algorithm>
#include <archive.h>
#include <archive_entry.h>
#include <memory>
#include <optional>

using namespace Qt::StringLiterals;

namespace
{
using Archive = std::unique_ptr<archive, decltype(&archive_read_free)>;

QString rawName(archive_entry *entry)
{
    const char *utf8 = archive_entry_pathname_utf8(entry);
    const QByteArray bytes(utf8 ? utf8 : archive_entry_pathname(entry));
    return bytes.isValidUtf8() ? QString::fromUtf8(bytes) : QString();
}

class Reading
{
public:
    Reading(archive *archive, const ArchiveLimits &limits)
        : _archive(archive), _limits(limits), _left(limits.unpacked)
    {
    }

    ArchiveReading run()
    {
        archive_entry *entry = nullptr;
        int status = ARCHIVE_OK;
        while (isUsable(status = archive_read_next_header(_archive, &entry)) && take(entry)) {
        }
        if (_problem.isEmpty() && status != ARCHIVE_EOF)
            _problem = u"the archive is damaged: %1"_s.arg(reason());
        if (!_problem.isEmpty())
            return {{}, _problem};
        return {std::move(_entries), {}};
    }

private:
    static bool isUsable(int status) { return status == ARCHIVE_OK || status == ARCHIVE_WARN; }

    QString reason() const
    {
        const char *text = archive_error_string(_archive);
        return text ? shownPath(QString::fromLocal8Bit(text)) : u"it ends too early"_s;
    }

    bool refuse(const QString &problem)
    {
        _problem = problem;
        return false;
    }

    bool take(archive_entry *entry)
    {
        const QString name = rawName(entry);
        if (name.isEmpty())
            return refuse(u"the name of entry %1 is no text"_s.arg(_count + 1));
        if (++_count > _limits.entries)
            return refuse(u"there are more than %1 entries, %2 is the next"_s.arg(_limits.entries)
                              .arg(shownPath(name)));
        if (const QString problem = problemWith(entry); !problem.isEmpty())
            return refuse(u"%1 %2"_s.arg(shownPath(name), problem));
        const auto path = pathOf(name);
        return path && takeContents(entry, name, *path);
    }

    static QString problemWith(archive_entry *entry)
    {
        if (archive_entry_is_encrypted(entry))
            return u"is encrypted"_s;
        if (archive_entry_hardlink(entry) || archive_entry_filetype(entry) == AE_IFLNK)
            return u"is a link"_s;
        const auto type = archive_entry_filetype(entry);
        return type == AE_IFREG || type == AE_IFDIR ? QString()
                                                    : u"is neither a file nor a folder"_s;
    }

    /// Nothing, told why, when it leads astray.
    std::optional<QString> pathOf(const QString &name)
    {
        QStringList parts = name.split(u'/', Qt::SkipEmptyParts);
        parts.removeAll(u"."_s);
        const QString problem =
            name.startsWith(u'/') ? u"is an absolute path"_s : problemOfPath(parts, _limits.levels);
        if (!problem.isEmpty()) {
            refuse(shownPath(name) + u' ' + problem);
            return std::nullopt;
        }
        return parts.join(u'/');
    }

    bool takeContents(archive_entry *entry, const QString &name, const QString &path)
    {
        const bool isFolder = archive_entry_filetype(entry) == AE_IFDIR;
        const auto bytes = contents(
            name, archive_entry_size(entry)); // a folder's too, which would be skipped without end
        if (!bytes)
            return false;
        if (isFolder)
            return path.isEmpty() || rememberFolder(name, path);
        if (path.isEmpty())
            return refuse(shownPath(name) + u" is no name of a file"_s);
        if (_files.contains(path) || _folders.contains(path))
            return refuse(shownPath(name) + u" is there twice"_s);
        _files.insert(path);
        const qsizetype end = path.lastIndexOf(u'/');
        if (end > 0 && !rememberFolder(name, path.first(end)))
            return false;
        _entries.push_back({path, *bytes});
        return true;
    }

    /// With all above it; none of them may be a file.
    bool rememberFolder(const QString &name, const QString &path)
    {
        for (qsizetype end = path.indexOf(u'/');; end = path.indexOf(u'/', end + 1)) {
            const QString folder = path.left(end);
            if (_files.contains(folder))
                return refuse(shownPath(name) + u" lies in a file"_s);
            _folders.insert(folder);
            if (end < 0)
                return true;
        }
    }

    /// The size is what the entry claims, if it does; it spares growing again and again.
    std::optional<QByteArray> contents(const QString &name, qint64 size)
    {
        const auto refused = [&](const QString &why) {
            refuse(shownPath(name) + u' ' + why);
            return std::nullopt;
        };
        QByteArray bytes;
        bytes.reserve(qsizetype(std::clamp<qint64>(size, 0, _left)));
        while (true) {
            const void *block = nullptr;
            size_t blockSize = 0;
            la_int64_t offset = 0; // a gap before it reads as zeros
            const int status = archive_read_data_block(_archive, &block, &blockSize, &offset);
            if (status == ARCHIVE_EOF)
                break;
            if (status != ARCHIVE_OK) // a wrong checksum is a warning
                return refused(u"cannot be unpacked: %1"_s.arg(reason()));
            if (offset < bytes.size() || offset > _left || qint64(blockSize) > _left - offset)
                return refused(
                    u"makes the archive larger than %1 MB unpacked"_s.arg(_limits.unpacked >> 20));
            bytes.resize(qsizetype(offset), '\0');
            bytes.append(static_cast<const char *>(block), qsizetype(blockSize));
        }
        _left -= bytes.size();
        bytes.squeeze();
        return bytes;
    }

    archive *const _archive;
    const ArchiveLimits _limits;
    qint64 _left; // bytes that may still be unpacked
    int _count = 0;
    QSet<QString> _files, _folders;
    std::vector<ArchiveEntry> _entries;
    QString _problem;
};

/// The library holds a zip archive's whole directory in memory before it shows the first entry.
/// The mark may stand in honest contents as well, but hardly so often.
bool hasHugeDirectory(const QByteArray &bytes)
{
    constexpr qsizetype harmless = 20'000;
    return bytes.count(QByteArrayView("PK\1\2")) > harmless;
}
} // namespace

ArchiveReading readArchive(const QByteArray &bytes, const ArchiveLimits &limits)
{
    if (bytes.size() > limits.archive)
        return {{}, u"the archive is larger than %1 MB"_s.arg(limits.archive >> 20)};
    if (hasHugeDirectory(bytes))
        return {{}, u"there are more than %1 entries"_s.arg(limits.entries)};
    const NamesInUtf8 namesInUtf8;
    const Archive archive(archive_read_new(), &archive_read_free);
    if (!archive)
        return {{}, u"not enough memory"_s};
    // Zip by its directory alone: a cut-off archive has none.
    archive_read_support_format_zip_seekable(archive.get());
    archive_read_support_format_tar(archive.get());
    archive_read_support_filter_gzip(archive.get());
    constexpr int gzipAndPlain = 2; // each further one can multiply the work by a thousand
    if (archive_read_open_memory(archive.get(), bytes.constData(), size_t(bytes.size())) !=
            ARCHIVE_OK ||
        archive_filter_count(archive.get()) > gzipAndPlain)
        return {{}, u"it is no archive of a kind that is known"_s};
    return Reading(archive.get(), limits).run();
}
