// Work on files that a screen starts and waits for.
//
// It has two steps: the first on the screen's own serial queue, which may wait for another program,
// and the second on the main thread. From its start the screen's table stands still under the busy
// box; the second step ends that, before or after whatever it has to say.
//
//   run --> busy box --> first step (queue) --> second step (main thread) --> stop
#pragma once

#include "platform/UITableView.h"
#include "platform/foundation/DispatchQueue.h"
#include "views/ScreenOverlays.h"

#include <memory>
#include <string>

/// Main thread only.
class ScreenWork
{
public:
    /// The label is the queue's. The overlays must outlive this.
    ScreenWork(std::string label, ScreenOverlays &overlays);

    /// The table that stands still meanwhile; the screen's.
    void setTable(UITableView *table) { _table = table; }

    /// Starts the work; the text says what is going on. `second` gets what `first` has returned.
    /// The owner lives until both have run; hand in whoever owns what they use.
    template <typename First, typename Second>
    void run(const QString &text, std::shared_ptr<void> owner, First first, Second second)
    {
        start(text);
        _queue.async(
            [owner = std::move(owner), first = std::move(first), second = std::move(second)] {
                MainQueue::async([owner, second, result = first()] { second(result); });
            });
    }
    bool isRunning() const { return _overlays.isLoading(); }

    /// The busy box and what stands still under it.
    void start(const QString &text);
    void stop();

    /// For the end of the program: work that has begun is finished, both its steps.
    void finish();

private:
    ScreenOverlays &_overlays;
    UITableView *_table = nullptr;
    DispatchQueue _queue;
};
