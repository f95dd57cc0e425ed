// Serial queues, and the main queue.
//
// A serial queue is one thread with a label that runs blocks in the order in which they came.
// It stands on std::thread and a condition variable rather than on QThread, so that a thread
// sanitizer sees every hand-over. A block that outlives its caller must own what it uses: capture
// values and shared pointers, never a bare `this`.
#pragma once

#include "platform/foundation/ThreadAnnotations.h"

#include <condition_variable>
#include <deque>
#include <functional>
#include <string>
#include <thread>
#include <vector>

class DispatchQueue
{
public:
    using Block = std::function<void()>;

    /// Starts the thread, or that many: of these each takes the next block that waits, so that
    /// blocks begin in order and run side by side. The label is for people: debuggers and logs show
    /// it.
    explicit DispatchQueue(std::string label, unsigned threads = 1);
    /// Runs what is still queued, then joins the threads. Must not be called from a block of the
    /// queue.
    ~DispatchQueue();
    DispatchQueue(const DispatchQueue &) = delete;
    DispatchQueue &operator=(const DispatchQueue &) = delete;

    /// Queues a block and returns at once; any thread.
    void async(Block block);
    /// Queues a block and waits until it has run; any thread but the queue's own. On one thread,
    /// all that was queued before has run then, too.
    void sync(const Block &block);

    const std::string &label() const { return _label; }

private:
    void run();
    bool isOwnThread() const;

    const std::string _label;
    Mutex _mutex;
    std::condition_variable _wake;
    std::deque<Block> _blocks GUARDED_BY(_mutex);
    bool _stopping GUARDED_BY(_mutex) = false;
    std::vector<std::thread> _threads; // last: they use all of the above from their first moment
};

namespace MainQueue
{
/// Runs the block on the main thread, from its event loop; any thread. Needs a QCoreApplication.
void async(DispatchQueue::Block block);
/// Runs what has been posted so far without entering the event loop; main thread only. For the way
/// out of the program, when the loop has already ended.
void drain();
} // namespace MainQueue
