#include "platform/foundation/DispatchQueue.h"

#include <QCoreApplication>
#include <QEvent>

#include <future>
#include <mutex>

DispatchQueue::DispatchQueue(std::string label)
    : _label(std::move(label)), _thread([this] { run(); })
{
}

DispatchQueue::~DispatchQueue()
{
    Q_ASSERT(std::this_thread::get_id() != _thread.get_id());
    {
        const MutexLock lock(_mutex);
        _stopping = true;
    }
    _wake.notify_one();
    _thread.join();
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
    Q_ASSERT(std::this_thread::get_id() != _thread.get_id());
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
