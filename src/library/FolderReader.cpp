#include "library/FolderReader.h"

#include "archives/EntryPath.h"
#include "platform/foundation/NSFileManager.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;
using Kind = NSFileManager::Kind;

namespace
{
class Walk
{
public:
    Walk(const QString &root, const ArchiveLimits &limits)
        : _root(root), _limits(limits), _left(limits.unpacked)
    {
    }

    ArchiveReading run()
    {
        if (!visit({}))
            return {{}, _problem};
        return {std::move(_entries), {}};
    }

private:
    QString placeOf(const QStringList &parts) const
    {
        return (QStringList(_root) + parts).join(u'/');
    }

    bool refuse(const QStringList &parts, const QString &why)
    {
        _problem = shownPath(parts.join(u'/')) + u' ' + why;
        return false;
    }

    bool refuse(const QStringList &parts, const std::error_code &error)
    {
        return refuse(parts, u"cannot be read: %1"_s.arg(QString::fromStdString(error.message())));
    }

    bool visit(const QStringList &folder)
    {
        const auto [names, error] = NSFileManager::contentsOfDirectoryAtPath(placeOf(folder));
        if (error)
            return refuse(folder, error);
        for (const QString &name : names)
            if (!take(folder + QStringList(name)))
                return false;
        return true;
    }

    bool take(const QStringList &parts)
    {
        if (++_count > _limits.entries)
            return refuse(parts, u"is one more than %1 entries"_s.arg(_limits.entries));
        if (const QString problem = problemOfPath(parts, _limits.levels); !problem.isEmpty())
            return refuse(parts, problem);
        const auto item = NSFileManager::itemAtPath(placeOf(parts));
        if (item.error)
            return refuse(parts, item.error);
        if (item.kind == Kind::Folder)
            return visit(parts);
        if (item.kind != Kind::File)
            return refuse(parts, item.kind == Kind::Link ? u"is a link"_s
                                                         : u"is neither a file nor a folder"_s);
        return read(parts);
    }

    bool read(const QStringList &parts)
    {
        const QString tooLarge =
            u"makes the package larger than %1 MB"_s.arg(_limits.unpacked >> 20);
        if (QFileInfo(placeOf(parts)).size() > _left)
            return refuse(parts, tooLarge);
        auto [bytes, error] = NSFileManager::contentsAtPath(placeOf(parts));
        if (error)
            return refuse(parts, error);
        _left -= bytes.size();
        if (_left < 0)
            return refuse(parts, tooLarge);
        _entries.push_back({parts.join(u'/'), std::move(bytes)});
        return true;
    }

    const QString _root;
    const ArchiveLimits _limits;
    qint64 _left; // bytes that may still be read
    int _count = 0;
    std::vector<ArchiveEntry> _entries;
    QString _problem;
};
} // namespace

ArchiveReading readFolder(const QString &folder, const ArchiveLimits &limits)
{
    return Walk(folder, limits).run();
}
