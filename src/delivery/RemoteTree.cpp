#include "delivery/RemoteTree.h"

#include <memory>

namespace
{
constexpr int deepest = 16;
constexpr qsizetype mostItems = 10'000;

struct Reading {
    int underWay = 0;
    bool isAtEnd = false;
};

void readOn(SftpSession &session, const QByteArray &handle, const RemoteFolder::Each &each,
            const std::shared_ptr<Reading> &reading)
{
    ++reading->underWay;
    session.readFolder(handle, [&session, handle, each, reading](const SftpReply &reply) {
        --reading->underWay;
        // A reply without names would be asked for without end.
        reading->isAtEnd = reading->isAtEnd || !reply.isOk() || reply.names.empty();
        for (const SftpReply::Name &name : reply.names)
            if (name.name != "." && name.name != ".." && !name.name.isEmpty() &&
                !name.name.contains('/') && !name.name.contains('\0'))
                each(name);
        if (!reading->isAtEnd)
            readOn(session, handle, each, reading);
        else if (reading->underWay == 0)
            session.close(handle, [](const SftpReply &) {});
    });
}
} // namespace

void RemoteFolder::read(SftpSession &session, const QByteArray &handle, const Each &each)
{
    const auto reading = std::make_shared<Reading>();
    readOn(session, handle, each, reading);
    readOn(session, handle, each, reading);
}

void RemoteTree::look(SftpSession &session, const QByteArray &path)
{
    lookInto(session, path, {}, 0);
}

void RemoteTree::lookInto(SftpSession &session, const QByteArray &root, const QByteArray &folder,
                          int level)
{
    session.openFolder(root + folder, [this, &session, root, folder, level](auto &reply) {
        if (reply.isOk())
            read(session, root, folder, level, reply.handle);
    });
}

void RemoteTree::read(SftpSession &session, const QByteArray &root, const QByteArray &folder,
                      int level, const QByteArray &handle)
{
    RemoteFolder::read(session, handle, [this, &session, root, folder, level](auto &found) {
        if (_files.size() + _folders.size() >= mostItems)
            return;
        const QByteArray path = folder + '/' + found.name;
        if (found.attributes.kind() != SftpAttributes::Kind::Folder)
            return _files.append(path);
        _folders.append(path);
        if (level < deepest)
            lookInto(session, root, path, level + 1);
    });
}

void RemoteTree::remove(SftpSession &session, const QByteArray &path) const
{
    const auto ignore = [](const SftpReply &) {}; // what stays is the next one's to remove
    for (const QByteArray &file : _files)
        session.removeFile(path + file, ignore);
    for (qsizetype i = _folders.size(); i-- > 0;)
        session.removeFolder(path + _folders[i], ignore);
    session.removeFolder(path, ignore);
}
