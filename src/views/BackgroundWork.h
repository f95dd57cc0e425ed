// Work on files under which a screen stays free: the first step on a serial queue, which may wait
// for another program, the second on the main thread, unless who started it is gone by then.
#pragma once

#include "platform/foundation/DispatchQueue.h"

#include <memory>
#include <optional>
#include <string>

/// Main thread only. Make it the last member of its owner: what the second steps use must outlive
/// it. First steps that have begun or wait are finished even so.
class BackgroundWork
{
public:
    /// The label is the queue's.
    explicit BackgroundWork(std::string label) : _label(std::move(label)) {}

    /// `second` gets what `first` has returned.
    template <typename First, typename Second>
    void run(First first, Second second)
    {
        if (!_queue)
            _queue.emplace(_label);
        _queue->async([alive = std::weak_ptr<void>(_alive), first = std::move(first),
                       second = std::move(second)] {
            MainQueue::async([alive, second, result = first()] {
                if (!alive.expired()) // it dies on this thread, so that it now lives on
                    second(result);
            });
        });
    }

    /// For the end of the program: work that has begun is finished, both its steps.
    void finish()
    {
        if (!_queue)
            return;
        _queue->sync([] {});
        MainQueue::drain();
    }

private:
    const std::string _label;
    std::optional<DispatchQueue> _queue; // since there was something to do
    // Goes before the queue.
    std::shared_ptr<void> _alive = std::make_shared<char>();
};
