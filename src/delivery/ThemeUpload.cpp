#include "delivery/ThemeUpload.h"

#include "delivery/PhoneWords.h"
#include "theme/ThemeLocations.h"

#include <set>

using namespace Qt::StringLiterals;

namespace
{
constexpr qsizetype piece = 32'768; // bytes of one request; the most that every server takes
constexpr int mostWriting = 64;     // requests: 2 MB under way
constexpr int mostOpened = 32;      // servers run out of handles
} // namespace

ThemeUpload::ThemeUpload(SftpSession &session, QByteArray folder, const Files &files,
                         Progress progress)
    : _session(session), _folder(std::move(folder)), _progress(std::move(progress))
{
    std::set<QByteArray> known;
    for (const auto &[name, bytes] : files) {
        const QByteArray path = '/' + name.toUtf8();
        QByteArray folder = path.first(path.lastIndexOf('/'));
        _files[folder].push_back({path, bytes, 0, {}});
        ++_unfinished;
        while (!folder.isEmpty() && known.insert(folder).second) {
            const QByteArray above = folder.first(folder.lastIndexOf('/'));
            _folders[above].append(folder);
            folder = above;
        }
    }
}

void ThemeUpload::start()
{
    enter({});
}

void ThemeUpload::enter(const QByteArray &folder)
{
    if (!folder.isEmpty())
        _session.setMode(_folder + folder, packagePermissions, [this, folder](auto &reply) {
            if (!reply.isOk())
                fail(folder, reply);
        });
    for (const QByteArray &below : _folders[folder])
        _session.makeFolder(_folder + below, [this, below](const SftpReply &reply) {
            if (!reply.isOk())
                return fail(below, reply);
            enter(below);
        });
    for (File &file : _files[folder])
        _toOpen.push_back(&file);
    openNext();
}

void ThemeUpload::openNext()
{
    while (_problem.isEmpty() && _opened < mostOpened && !_toOpen.empty()) {
        File &file = *_toOpen.front();
        _toOpen.pop_front();
        ++_opened;
        _session.makeFile(_folder + file.path, [this, &file](const SftpReply &reply) {
            if (!reply.isOk())
                return fail(file.path, reply);
            file.handle = reply.handle;
            _toSend.push_back(&file);
            pump();
        });
    }
}

void ThemeUpload::pump()
{
    while (_problem.isEmpty() && _writing < mostWriting && !_toSend.empty()) {
        File &file = *_toSend.front();
        const auto bytes =
            file.bytes.sliced(file.sent).first(std::min(piece, file.bytes.size() - file.sent));
        if (!bytes.isEmpty()) {
            ++_writing;
            _session.write(file.handle, quint64(file.sent), bytes,
                           [this, &file, count = bytes.size()](const SftpReply &reply) {
                               --_writing;
                               if (!reply.isOk())
                                   return fail(file.path, reply);
                               _arrived += count;
                               _progress(_arrived);
                               pump();
                           });
            file.sent += bytes.size();
        }
        if (file.sent == file.bytes.size()) {
            _toSend.pop_front();
            finish(file);
        }
    }
}

/// Requests about one file are answered in their order, so that none of these need wait.
void ThemeUpload::finish(File &file)
{
    _session.setModeOf(file.handle, packagePermissions, [this, &file](const SftpReply &reply) {
        if (!reply.isOk())
            fail(file.path, reply);
    });
    _session.attributesOf(file.handle, [this, &file](const SftpReply &reply) {
        if (!reply.isOk())
            return fail(file.path, reply);
        if (reply.attributes.size != quint64(file.bytes.size()))
            fail(u"\"%1\" did not arrive whole"_s.arg(QString::fromUtf8(file.path.sliced(1))));
    });
    _session.close(file.handle, [this, &file](const SftpReply &reply) {
        --_opened;
        if (!reply.isOk())
            return fail(file.path, reply);
        --_unfinished;
        openNext();
    });
}

void ThemeUpload::fail(const QByteArray &path, const SftpReply &reply)
{
    fail(PhoneWords::cannotWrite(_folder + path, reply));
}

void ThemeUpload::fail(const QString &problem)
{
    if (_problem.isEmpty())
        _problem = problem;
}

QString ThemeUpload::problem() const
{
    if (_problem.isEmpty() && _unfinished > 0)
        return u"not every file arrived"_s;
    return _problem;
}
