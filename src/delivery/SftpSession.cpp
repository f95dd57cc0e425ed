#include "delivery/SftpSession.h"

#include <QElapsedTimer>
#include <QtEndian>

#include <utility>

namespace
{
constexpr int usualPatience = 30'000; // milliseconds
constexpr int shortPatience = 5'000;
constexpr int moment = 50; // milliseconds after which a cancel is noticed
constexpr quint32 version = 3;
constexpr quint32 longestPacket = 1 << 18; // bytes; servers send up to 34000

enum Kind : quint8 {
    Init = 1,
    Version = 2,
    Open = 3,
    Close = 4,
    Write = 6,
    LStat = 7,
    FStat = 8,
    SetStat = 9,
    FSetStat = 10,
    OpenDir = 11,
    ReadDir = 12,
    Remove = 13,
    MkDir = 14,
    RmDir = 15,
    Rename = 18,
    StatusReply = 101,
    HandleReply = 102,
    NameReply = 104,
    AttributesReply = 105
};

enum AttributeFlag : quint32 {
    HasSize = 0x1,
    HasOwner = 0x2,
    HasMode = 0x4,
    HasTimes = 0x8,
    HasMore = 0x80000000
};

constexpr quint32 forWritingANewFile = 0x02 | 0x08 | 0x20; // write, create, refuse an existing one
constexpr quint32 privateMode = 0700;                      // until the theme is whole

/// Takes a packet apart. After a field that is not there, everything reads as nothing.
class Fields
{
public:
    explicit Fields(QByteArrayView bytes) : _left(bytes) {}

    template <typename Number>
    Number number()
    {
        const QByteArrayView bytes = take(sizeof(Number));
        return bytes.isEmpty() ? Number(0) : qFromBigEndian<Number>(bytes.data());
    }

    QByteArray string() { return take(number<quint32>()).toByteArray(); }

    SftpAttributes attributes()
    {
        SftpAttributes attributes;
        const auto flags = number<quint32>();
        if (flags & HasSize)
            attributes.size = number<quint64>();
        if (flags & HasOwner) {
            attributes.owner = number<quint32>();
            number<quint32>(); // the group
        }
        if (flags & HasMode)
            attributes.mode = number<quint32>();
        if (flags & HasTimes)
            number<quint64>(); // of access and of change
        if (flags & HasMore) {
            for (auto left = number<quint32>(); left > 0 && _isWhole; --left) {
                string();
                string();
            }
        }
        return attributes;
    }

    std::vector<SftpReply::Name> names()
    {
        std::vector<SftpReply::Name> names;
        for (auto left = number<quint32>(); left > 0 && _isWhole; --left) {
            QByteArray name = string();
            string(); // the same for people
            names.push_back({std::move(name), attributes()});
        }
        return names;
    }

    bool isWhole() const { return _isWhole; }

private:
    QByteArrayView take(quint32 count)
    {
        if (qsizetype(count) > _left.size())
            _isWhole = false;
        if (!_isWhole)
            return {};
        const QByteArrayView taken = _left.first(count);
        _left = _left.sliced(count);
        return taken;
    }

    QByteArrayView _left;
    bool _isWhole = true;
};
} // namespace

SftpAttributes::Kind SftpAttributes::kind() const
{
    switch (mode.value_or(0) & 0170000) {
    case 0:
        return Kind::Unknown;
    case 0100000:
        return Kind::File;
    case 0040000:
        return Kind::Folder;
    case 0120000:
        return Kind::Link;
    default:
        return Kind::Other;
    }
}

class SftpSession::Packet
{
public:
    explicit Packet(quint8 kind) : _bytes(1, char(kind)) {}

    template <typename Number>
    Packet &number(Number number)
    {
        char bytes[sizeof number];
        qToBigEndian(number, bytes);
        _bytes.append(bytes, sizeof bytes);
        return *this;
    }
    Packet &string(QByteArrayView bytes)
    {
        number(quint32(bytes.size()));
        _bytes.append(bytes);
        return *this;
    }
    Packet &mode(quint32 mode) { return number(quint32(HasMode)).number(mode); }

    QByteArrayView bytes() const { return _bytes; }

private:
    QByteArray _bytes; // the kind, then all but the request's number
};

SftpSession::SftpSession(SshConnection &connection, SshConnection::Cancelled cancelled)
    : _connection(connection), _cancelled(std::move(cancelled)), _patience(usualPatience)
{
}

void SftpSession::ask(const Packet &request, Then then)
{
    const QByteArrayView bytes = request.bytes();
    char head[4 + 1 + 4];
    const bool isFirst = bytes[0] == Init; // its version stands where others have their number
    const quint32 id = isFirst ? version : ++_lastId;
    qToBigEndian(quint32(bytes.size() + 4), head);
    head[4] = bytes[0];
    qToBigEndian(id, head + 5);
    _out.append(head, sizeof head).append(bytes.sliced(1));
    _open.emplace(isFirst ? 0 : id, std::move(then));
}

void SftpSession::begin()
{
    ask(Packet(Init), [](const SftpReply &) {});
}

void SftpSession::lstat(const QByteArray &path, Then then)
{
    ask(Packet(LStat).string(path), std::move(then));
}

void SftpSession::makeFolder(const QByteArray &path, Then then)
{
    ask(Packet(MkDir).string(path).mode(privateMode), std::move(then));
}

void SftpSession::makeFile(const QByteArray &path, Then then)
{
    ask(Packet(Open).string(path).number(forWritingANewFile).mode(privateMode), std::move(then));
}

void SftpSession::write(const QByteArray &handle, quint64 offset, QByteArrayView bytes, Then then)
{
    ask(Packet(Write).string(handle).number(offset).string(bytes), std::move(then));
}

void SftpSession::attributesOf(const QByteArray &handle, Then then)
{
    ask(Packet(FStat).string(handle), std::move(then));
}

void SftpSession::setMode(const QByteArray &path, quint32 mode, Then then)
{
    ask(Packet(SetStat).string(path).mode(mode), std::move(then));
}

void SftpSession::setModeOf(const QByteArray &handle, quint32 mode, Then then)
{
    ask(Packet(FSetStat).string(handle).mode(mode), std::move(then));
}

void SftpSession::close(const QByteArray &handle, Then then)
{
    ask(Packet(Close).string(handle), std::move(then));
}

void SftpSession::openFolder(const QByteArray &path, Then then)
{
    ask(Packet(OpenDir).string(path), std::move(then));
}

void SftpSession::readFolder(const QByteArray &handle, Then then)
{
    ask(Packet(ReadDir).string(handle), std::move(then));
}

void SftpSession::rename(const QByteArray &from, const QByteArray &to, Then then)
{
    ask(Packet(Rename).string(from).string(to), std::move(then));
}

void SftpSession::removeFile(const QByteArray &path, Then then)
{
    ask(Packet(Remove).string(path), std::move(then));
}

void SftpSession::removeFolder(const QByteArray &path, Then then)
{
    ask(Packet(RmDir).string(path), std::move(then));
}

bool SftpSession::run()
{
    QElapsedTimer silence;
    silence.start();
    while (_end == End::Open && !_open.empty()) {
        if (_cancelled && _cancelled())
            return stop(End::Cancelled);
        const quint64 moved = _moved;
        if (!sendSome() || !receiveSome())
            return false;
        if (_moved != moved)
            silence.restart();
        else if (silence.elapsed() > _patience)
            return stop(End::Silent);
    }
    return _end == End::Open;
}

bool SftpSession::runToTheEnd()
{
    const SshConnection::Cancelled cancelled = std::exchange(_cancelled, nullptr);
    const int patience = std::exchange(_patience, shortPatience);
    const bool isOpen = run();
    _cancelled = cancelled;
    _patience = patience;
    return isOpen;
}

void SftpSession::resume()
{
    // Nobody waits any more for the replies that are still to come; they must be known, though.
    for (auto &[id, then] : _open)
        then = [](const SftpReply &) {};
    if (_end == End::Cancelled)
        _end = End::Open;
}

bool SftpSession::sendSome()
{
    while (_sent < _out.size()) {
        const qint64 taken = _connection.send(_out.constData() + _sent, _out.size() - _sent);
        if (taken < 0)
            return stop(End::Lost);
        if (taken == 0)
            return true;
        _sent += taken;
        _moved += quint64(taken);
    }
    _out.clear();
    _sent = 0;
    return true;
}

bool SftpSession::receiveSome()
{
    char bytes[1 << 15];
    const qint64 count = _connection.receive(bytes, sizeof bytes, moment);
    if (count < 0)
        return stop(End::Lost);
    _moved += quint64(count);
    _in.append(bytes, count);
    qsizetype taken = 0;
    while (_in.size() - taken >= 4) {
        const auto length = qFromBigEndian<quint32>(_in.constData() + taken);
        if (length < 5 || length > longestPacket)
            return stop(End::Garbled);
        if (_in.size() - taken - 4 < qsizetype(length))
            break;
        // What a reply's function asks for does not touch the bytes that came.
        if (!take(QByteArrayView(_in).sliced(taken + 4, length)))
            return stop(End::Garbled);
        taken += 4 + qsizetype(length);
    }
    _in.remove(0, taken);
    return true;
}

bool SftpSession::take(QByteArrayView packet)
{
    Fields fields(packet);
    const auto kind = fields.number<quint8>();
    const auto id = fields.number<quint32>();
    SftpReply reply;
    switch (kind) {
    case Version:
        if (id < version)
            return false;
        break;
    case StatusReply:
        reply.status = fields.number<quint32>();
        break;
    case HandleReply:
        reply.handle = fields.string();
        break;
    case NameReply:
        reply.names = fields.names();
        break;
    case AttributesReply:
        reply.attributes = fields.attributes();
        break;
    default:
        return false;
    }
    auto open = _open.extract(kind == Version ? 0 : id);
    if (!fields.isWhole() || open.empty() || (kind != Version && open.key() == 0))
        return false;
    open.mapped()(reply);
    return true;
}

bool SftpSession::stop(End end)
{
    _end = end;
    return false;
}
