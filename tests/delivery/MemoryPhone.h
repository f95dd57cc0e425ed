// A phone in memory: its disk, and connections to it that fail where a test wants them to.
#pragma once

#include "ssh/Secret.h"
#include "ssh/SshModule.h"

#include <QByteArrayList>
#include <QtEndian>

#include <gtest/gtest.h>
#include <map>

struct MemoryDisk {
    struct Item {
        quint32 mode = 0; // kind and permissions
        quint32 owner = 0;
        QByteArray bytes;
        bool operator==(const Item &) const = default;
    };
    static constexpr quint32 file = 0100000, folder = 0040000, link = 0120000;

    std::map<QByteArray, Item> items;
    qint64 room = 1 << 30; // bytes
    QByteArray readOnly;   // a folder in which nothing is made
    quint32 user = 501;

    void put(const QByteArray &path, quint32 kind, const QByteArray &bytes = {},
             quint32 owner = 501)
    {
        items[path] = {kind | 0777, owner, bytes};
    }

    /// All below a folder, by its path there.
    std::map<QByteArray, QByteArray> below(const QByteArray &path) const
    {
        std::map<QByteArray, QByteArray> found;
        for (const auto &[name, item] : items)
            if (name.startsWith(path + '/'))
                found[name.sliced(path.size() + 1)] = item.bytes;
        return found;
    }

    QByteArrayList names(const QByteArray &path) const
    {
        QByteArrayList names;
        for (const auto &[name, bytes] : below(path))
            if (!name.contains('/'))
                names.append(name);
        return names;
    }
};

class MemoryPhone : public SshConnection
{
public:
    explicit MemoryPhone(MemoryDisk &disk) : _disk(disk) {}

    SshHostKey key{SshHostKey::Standing::Known, "ssh-ed25519", "SHA256:abc", {}, {}, 0};
    SshLogin withKeys = SshLogin::In;
    QByteArray password; // that lets in; empty: none does
    QByteArrayList tried;
    bool remembered = false;
    int cutAt = -1;  // the request at which the connection is lost: nothing of it is done
    int failAt = -1; // the request that is refused, by the status
    quint32 failure = 4;
    std::function<void(int)> onRequest;
    std::function<void(QByteArray &)> onReply;
    int requests = 0;

    bool connect(const SshAddress &, const Cancelled &) override { return step(); }
    SshHostKey hostKey() override { return key; }
    bool rememberHostKey() override { return remembered = true; }
    SshLogin logInWithKeys(const AskPassphrase &) override { return withKeys; }
    bool takesPassword() override { return !password.isEmpty(); }
    SshLogin logInWithPassword(const Secret &given) override
    {
        tried.append(given.text());
        return given.text() == password ? SshLogin::In : SshLogin::Denied;
    }
    QString user() override { return "mobile"; }
    bool openTransfer() override { return step(); }
    void finish() override {}
    QString problem() const override { return "the line is dead"; }

    qint64 send(const char *bytes, qint64 count) override
    {
        if (_isCut)
            return -1;
        _in.append(bytes, count);
        while (!_isCut && _in.size() >= 4) {
            const qsizetype length = qFromBigEndian<quint32>(_in.constData());
            if (_in.size() < 4 + length)
                break;
            const QByteArray packet = _in.sliced(4, length);
            _in.remove(0, 4 + length);
            if (step())
                answer(packet);
        }
        return count;
    }

    qint64 receive(char *bytes, qint64 most, int) override
    {
        if (_isCut && _out.isEmpty())
            return -1;
        const qint64 count = std::min<qint64>({most, _out.size(), 7000}); // in odd pieces
        std::copy_n(_out.constData(), count, bytes);
        _out.remove(0, count);
        return count;
    }

private:
    using Numbers = std::initializer_list<quint32>;

    bool step()
    {
        const int number = requests++;
        if (onRequest)
            onRequest(number);
        if (number == cutAt)
            _isCut = true;
        return !_isCut;
    }

    quint32 number()
    {
        const auto value = qFromBigEndian<quint32>(_packet.constData());
        _packet.remove(0, 4);
        return value;
    }
    QByteArray string()
    {
        const quint32 size = number();
        const QByteArray bytes = _packet.first(size);
        _packet.remove(0, size);
        return bytes;
    }

    static QByteArray bytesOf(quint32 number)
    {
        char bytes[4];
        qToBigEndian(number, bytes);
        return QByteArray(bytes, 4);
    }
    static QByteArray stringOf(const QByteArray &text) { return bytesOf(text.size()) + text; }
    static QByteArray attributesOf(const MemoryDisk::Item &item)
    {
        return bytesOf(1 | 2 | 4) + bytesOf(0) + bytesOf(item.bytes.size()) + bytesOf(item.owner) +
               bytesOf(0) + bytesOf(item.mode);
    }

    void reply(char kind, const QByteArray &fields)
    {
        QByteArray packet = kind + bytesOf(_id) + fields;
        if (onReply)
            onReply(packet);
        _out += bytesOf(packet.size()) + packet;
    }
    void status(quint32 status)
    {
        reply(101, bytesOf(status) + stringOf("as it is") + stringOf("en"));
    }

    void answer(const QByteArray &packet)
    {
        const char kind = packet[0];
        _packet = packet.sliced(1);
        _id = number();
        if (kind == 1)
            return reply(2, {});
        if (requests - 1 == failAt)
            return status(failure);
        const QByteArray path = string();
        if (kind >= 12 || kind == 3 || kind == 7 || kind == 9 || kind == 11)
            answerAboutPath(kind, path);
        else
            answerAboutHandle(kind, path);
    }

    void answerAboutPath(char kind, const QByteArray &path)
    {
        auto &items = _disk.items;
        if (kind == 12)
            return readFolder(path);
        const auto item = items.find(path);
        if (kind == 14 || kind == 3) { // make a folder, a file
            const QByteArray above = path.first(path.lastIndexOf('/'));
            if (item != items.end() || !items.contains(above))
                return status(4);
            if (above == _disk.readOnly)
                return status(3);
            if (kind == 3)
                number(); // how it is opened
            number();     // which attributes there are
            items[path] = {
                (kind == 3 ? MemoryDisk::file : MemoryDisk::folder) | number(), _disk.user, {}};
            return kind == 3 ? reply(102, stringOf(path)) : status(0);
        }
        if (item == items.end())
            return status(2);
        const bool isFolder = item->second.mode & MemoryDisk::folder;
        switch (kind) {
        case 7:
            return reply(105, attributesOf(item->second));
        case 9:
            number();
            item->second.mode = (item->second.mode & 0170000) | number();
            return status(0);
        case 11:
            _read.erase(path);
            return isFolder ? reply(102, stringOf(path)) : status(4);
        case 13:
        case 15:
            if (isFolder != (kind == 15) || !_disk.below(path).empty())
                return status(4);
            items.erase(item);
            return status(0);
        case 18:
            return rename(path, string());
        default:
            return status(8);
        }
    }

    void rename(const QByteArray &from, const QByteArray &to)
    {
        if (_disk.items.contains(to))
            return status(4);
        std::map<QByteArray, MemoryDisk::Item> renamed;
        for (const auto &[path, item] : _disk.items)
            renamed[path == from || path.startsWith(from + '/') ? to + path.sliced(from.size())
                                                                : path] = item;
        _disk.items = renamed;
        // Who writes into it goes on doing so.
        status(0);
    }

    /// Two names at a time.
    void readFolder(const QByteArray &path)
    {
        const QByteArrayList names = _disk.names(path);
        int &next = _read[path];
        if (next >= names.size())
            return status(1);
        const QByteArrayList some = names.mid(next, 2);
        next += int(some.size());
        QByteArray fields = bytesOf(some.size());
        for (const QByteArray &name : some)
            fields += stringOf(name) + stringOf("-rwx " + name) +
                      attributesOf(_disk.items[path + '/' + name]);
        reply(104, fields);
    }

    void answerAboutHandle(char kind, const QByteArray &handle)
    {
        const auto item = _disk.items.find(handle);
        if (item == _disk.items.end())
            return status(4);
        QByteArray &bytes = item->second.bytes;
        switch (kind) {
        case 6: {
            number();
            const quint32 offset = number();
            const QByteArray piece = string();
            if (piece.size() > _disk.room)
                return status(4);
            _disk.room -= piece.size();
            if (bytes.size() < offset)
                bytes.resize(offset);
            bytes.replace(offset, piece.size(), piece);
            return status(0);
        }
        case 8:
            return reply(105, attributesOf(item->second));
        case 10:
            number();
            item->second.mode = (item->second.mode & 0170000) | number();
            return status(0);
        default: // close
            return status(0);
        }
    }

    MemoryDisk &_disk;
    QByteArray _packet, _in, _out;
    quint32 _id = 0;
    std::map<QByteArray, int> _read;
    bool _isCut = false;
};
