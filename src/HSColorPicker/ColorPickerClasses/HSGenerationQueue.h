// Runs generate operations side by side on a few threads.
#pragma once

#include "HSColorPicker/ColorPickerClasses/HSGenerateOperation.h"

#include <condition_variable>
#include <deque>
#include <memory>
#include <thread>
#include <vector>

class HSGenerationQueue
{
public:
    /// One thread per processor.
    HSGenerationQueue();
    /// Runs what is still queued, then joins the threads.
    ~HSGenerationQueue();
    HSGenerationQueue(const HSGenerationQueue &) = delete;
    HSGenerationQueue &operator=(const HSGenerationQueue &) = delete;

    /// Queues an operation and returns at once; any thread.
    void addOperation(std::shared_ptr<HSGenerateOperation> operation);

private:
    void run();

    Mutex _mutex;
    std::condition_variable _wake;
    std::deque<std::shared_ptr<HSGenerateOperation>> _operations GUARDED_BY(_mutex);
    bool _stopping GUARDED_BY(_mutex) = false;
    std::vector<std::thread> _threads; // last: they use all of the above from their first moment
};
