#include "HSColorPicker/ColorPickerClasses/HSGenerationQueue.h"

#include <algorithm>

HSGenerationQueue::HSGenerationQueue()
{
    const unsigned count = std::max(1u, std::thread::hardware_concurrency());
    for (unsigned i = 0; i < count; ++i)
        _threads.emplace_back([this] { run(); });
}

HSGenerationQueue::~HSGenerationQueue()
{
    {
        const MutexLock lock(_mutex);
        _stopping = true;
    }
    _wake.notify_all();
    for (std::thread &thread : _threads)
        thread.join();
}

void HSGenerationQueue::addOperation(std::shared_ptr<HSGenerateOperation> operation)
{
    {
        const MutexLock lock(_mutex);
        _operations.push_back(std::move(operation));
    }
    _wake.notify_one();
}

void HSGenerationQueue::run()
{
    MutexLock lock(_mutex);
    while (true) {
        while (!_stopping && _operations.empty())
            lock.wait(_wake);
        if (_operations.empty())
            return;
        const std::shared_ptr<HSGenerateOperation> operation = std::move(_operations.front());
        _operations.pop_front();
        lock.unlock();
        operation->start();
        lock.lock();
    }
}
