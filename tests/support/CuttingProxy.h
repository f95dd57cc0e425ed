// Forwards connections to a port of this machine: late, and not for ever.
#pragma once

#include "support/SshServer.h"

#include <array>
#include <atomic>
#include <chrono>
#include <deque>
#include <poll.h>
#include <thread>

class CuttingProxy
{
public:
    /// Each byte arrives that much later. A connection is cut when that many pieces have come from
    /// the client; what has come before still reaches the server. Less than 0: never.
    CuttingProxy(int target, std::chrono::milliseconds delay, int pieces)
        : _target(target), _delay(delay), _pieces(pieces)
    {
        _listener = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
        sockaddr_in address = local(0);
        socklen_t size = sizeof address;
        auto *const general = reinterpret_cast<sockaddr *>(&address);
        EXPECT_EQ(::bind(_listener, general, size), 0);
        EXPECT_EQ(::listen(_listener, 10), 0);
        EXPECT_EQ(::getsockname(_listener, general, &size), 0);
        _port = ntohs(address.sin_port);
        _thread = std::thread([this] {
            while (!_ending)
                if (isReady(_listener, 20))
                    serve(::accept4(_listener, nullptr, nullptr, SOCK_CLOEXEC));
        });
    }
    ~CuttingProxy()
    {
        _ending = true;
        _thread.join();
        ::close(_listener);
    }
    CuttingProxy(const CuttingProxy &) = delete;
    CuttingProxy &operator=(const CuttingProxy &) = delete;

    int port() const { return _port; }
    /// Whether the last connection was cut; true no sooner than the server has noticed, too.
    bool wasCut() const { return _wasCut; }
    void waitUntilIdle() const
    {
        while (_isServing)
            std::this_thread::yield();
    }

private:
    using Clock = std::chrono::steady_clock;
    struct Way {
        int from, to;
        struct Piece {
            Clock::time_point due;
            QByteArray bytes;
        };
        std::deque<Piece> pieces;
        bool isOpen = true; // more may come
        int count = 0;
    };

    static sockaddr_in local(int port)
    {
        return {AF_INET, htons(uint16_t(port)), {htonl(INADDR_LOOPBACK)}, {}};
    }
    static bool isReady(int socket, int milliseconds)
    {
        pollfd file{socket, POLLIN, 0};
        return ::poll(&file, 1, milliseconds) > 0;
    }

    void serve(int client)
    {
        _isServing = true;
        _wasCut = false;
        const int server = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
        const sockaddr_in address = local(_target);
        EXPECT_EQ(::connect(server, reinterpret_cast<const sockaddr *>(&address), sizeof address),
                  0);
        const int now = 1;
        for (const int socket : {client, server})
            ::setsockopt(socket, IPPROTO_TCP, 1 /* TCP_NODELAY */, &now, sizeof now);
        std::array<Way, 2> ways{Way{client, server, {}, true, 0}, Way{server, client, {}, true, 0}};
        bool isCut = false;
        while (!isCut && (isAlive(ways[0]) || isAlive(ways[1])) && ways[1].isOpen) {
            waitFor(ways);
            for (Way &way : ways)
                forward(way);
            isCut = _pieces >= 0 && ways[0].count >= _pieces;
        }
        for (const Way::Piece &piece : ways[isCut ? 0 : 1].pieces)
            write(ways[isCut ? 0 : 1].to, piece.bytes);
        ::shutdown(server, SHUT_WR);
        ::close(client);
        std::array<char, 4096> rest;
        while (::recv(server, rest.data(), rest.size(), 0) > 0) {
        }
        ::close(server);
        _wasCut = isCut;
        _isServing = false;
    }

    static bool isAlive(const Way &way) { return way.isOpen || !way.pieces.empty(); }

    static void write(int socket, const QByteArray &bytes)
    {
        qsizetype sent = 0;
        while (sent < bytes.size()) {
            const auto count = ::send(socket, bytes.constData() + sent,
                                      std::size_t(bytes.size() - sent), MSG_NOSIGNAL);
            if (count <= 0)
                return;
            sent += count;
        }
    }

    void waitFor(const std::array<Way, 2> &ways) const
    {
        auto until = Clock::now() + std::chrono::milliseconds(20);
        for (const Way &way : ways)
            if (!way.pieces.empty())
                until = std::min(until, way.pieces.front().due);
        const auto left = std::max(until - Clock::now(), Clock::duration::zero());
        const timespec time{0, std::chrono::nanoseconds(left).count()};
        std::array<pollfd, 2> files;
        for (std::size_t i = 0; i < ways.size(); ++i)
            files[i] = {ways[i].isOpen ? ways[i].from : -1, POLLIN, 0};
        ::ppoll(files.data(), files.size(), &time, nullptr);
    }

    void forward(Way &way) const
    {
        std::array<char, 65536> bytes;
        if (way.isOpen && isReady(way.from, 0)) {
            const auto count = ::recv(way.from, bytes.data(), bytes.size(), 0);
            way.isOpen = count > 0;
            if (count > 0)
                way.pieces.push_back({Clock::now() + _delay, QByteArray(bytes.data(), count)});
            way.count += count > 0;
        }
        while (!way.pieces.empty() && way.pieces.front().due <= Clock::now()) {
            write(way.to, way.pieces.front().bytes);
            way.pieces.pop_front();
        }
        if (!isAlive(way))
            ::shutdown(way.to, SHUT_WR);
    }

    const int _target;
    const std::chrono::milliseconds _delay;
    const int _pieces;
    int _listener = -1, _port = 0;
    std::atomic<bool> _ending = false, _wasCut = false, _isServing = false;
    std::thread _thread;
};
