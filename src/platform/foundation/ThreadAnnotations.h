// Which mutex guards what, in words that clang checks (-Wthread-safety); other compilers read over
// them.
//
// The standard library's own mutex carries no such words, so a mutex that guards something is a
// Mutex, and whoever holds it does so by a MutexLock.
#pragma once

#include <condition_variable>
#include <mutex>

#ifdef __clang__
#define THREAD_ANNOTATION(attribute) __attribute__((attribute))
#else
#define THREAD_ANNOTATION(attribute)
#endif

/// A field that is touched only while the mutex is held.
#define GUARDED_BY(mutex) THREAD_ANNOTATION(guarded_by(mutex))

class THREAD_ANNOTATION(capability("mutex")) Mutex
{
private:
    friend class MutexLock;
    std::mutex _mutex;
};

/// Holds a mutex while it lives, but for the time between `unlock` and `lock`.
class THREAD_ANNOTATION(scoped_lockable) MutexLock
{
public:
    explicit MutexLock(Mutex &mutex) THREAD_ANNOTATION(acquire_capability(mutex))
        : _lock(mutex._mutex)
    {
    }
    ~MutexLock() THREAD_ANNOTATION(release_capability()) = default;
    MutexLock(const MutexLock &) = delete;
    MutexLock &operator=(const MutexLock &) = delete;

    void unlock() THREAD_ANNOTATION(release_capability()) { _lock.unlock(); }
    void lock() THREAD_ANNOTATION(acquire_capability()) { _lock.lock(); }
    /// Lets the mutex go until the condition is notified or, now and then, for no reason: ask again
    /// what was waited for.
    void wait(std::condition_variable &condition) { condition.wait(_lock); }

private:
    std::unique_lock<std::mutex> _lock;
};
