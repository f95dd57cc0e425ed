// Bringing the files of a package into a folder of the phone that was made for them.
#pragma once

#include "delivery/SftpSession.h"

#include <map>

class ThemeUpload
{
public:
    using Files = std::map<QString, QByteArray>;       // by path below the package, "/" between
    using Progress = std::function<void(qint64 sent)>; // bytes that have arrived

    /// Keep the files, and this, until the session has run.
    ThemeUpload(SftpSession &session, QByteArray folder, const Files &files, Progress progress);

    /// Asks for everything, as soon as what it depends on is there; the session's run ends it. The
    /// folder itself is there, and remains private as long as it is not whole. All in it is opened
    /// to everybody, and the sizes are compared.
    void start();
    /// Once the session has run: why the phone does not hold all of it, for people; else empty.
    QString problem() const;

private:
    struct File {
        QByteArray path; // below the folder, with a "/" before it
        QByteArrayView bytes;
        qsizetype sent = 0;
        QByteArray handle;
    };

    void enter(const QByteArray &folder);
    void openNext();
    void pump();
    void finish(File &file);
    void fail(const QByteArray &path, const SftpReply &reply);
    void fail(const QString &problem);

    SftpSession &_session;
    const QByteArray _folder;
    Progress _progress;
    std::map<QByteArray, std::vector<File>> _files; // by their folder
    std::map<QByteArray, QByteArrayList> _folders;  // by the folder above them
    std::deque<File *> _toOpen;                     // their folder is there
    std::deque<File *> _toSend;                     // opened
    int _opened = 0, _writing = 0;
    std::size_t _unfinished = 0;
    qint64 _arrived = 0;
    QString _problem;
};
