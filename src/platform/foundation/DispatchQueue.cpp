#include "platform/foundation/DispatchQueue.h"

#include <QCoreApplication>
#include <QEvent>

#include <algorithm>
#include <future>
#include <mutex>

DispatchQueue::DispatchQueue(std::string label, unsigned threads) : _label(std::move(label))
{
    for (unsigned started = 0; started < threads; ++started)
        _threads.emplace_back([this] { run(); });
}

DispatchQueue::~DispatchQueue()
{
    Q_ASSERT(!isOwnThread());
    {
        const MutexLock lock(_mutex);
        _stopping = true;
    }
    _wake.notify_all();
    for (std::thread &thread : _threads)
        thread.join();
}

bool DispatchQueue::isOwnThread() const
{
    return std::ranges::count(_threads, std::this_thread::get_id(), &std::thread::get_id) > 0;
}

void DispatchQueue::async(Block block)
{
    {
        const MutexLock lock(_mutex);
        _blocks.push_back(std::move(block));
    }
    _wake.notify_one();
}

void DispatchQueue::sync(const Block &block)
{
    Q_ASSERT(!isOwnThread());
    std::promise<void> done;
    async([&] {
        block();
        done.set_value();
    });
    done.get_future().wait();
}

void DispatchQueue::run()
{
    MutexLock lock(_mutex);
    while (true) {
        while (!_stopping && _blocks.empty())
            lock.wait(_wake);
        if (_blocks.empty())
            return;
        Block block = std::move(_blocks.front());
        _blocks.pop_front();
        lock.unlock();
        block();
        block = nullptr; // what the block held is let go outside the lock
        lock.lock();
    }
}

void MainQueue::async(DispatchQueue::Block block)
{
    // Qt's own locks order the two threads; this one tells a thread sanitizer, which cannot look
    // into a Qt that was built without it.
    static std::mutex handOver;
    const std::lock_guard posting(handOver);
    QMetaObject::invokeMethod(
        qApp,
        [block = std::move(block)] {
            std::unique_lock(handOver).unlock(); // before the block is touched
            block();
        },
        Qt::QueuedConnection);
}

void MainQueue::drain()
{
    QCoreApplication::sendPostedEvents(qApp, QEvent::MetaCall);
}
