#include "platform/foundation/DispatchQueue.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

TEST(DispatchQueueTest, RunsBlocksInOrderOnOneOtherThread)
{
    std::vector<int> seen;
    std::vector<std::thread::id> threads;
    {
        DispatchQueue queue("test.order");
        for (int i = 0; i < 1000; ++i)
            queue.async([&, i] {
                seen.push_back(i);
                threads.push_back(std::this_thread::get_id());
            });
        queue.sync([&] { EXPECT_EQ(seen.size(), 1000U); });
        queue.async([&] { seen.push_back(1000); });
    } // the destructor runs what is still queued
    EXPECT_EQ(seen.size(), 1001U);
    EXPECT_TRUE(std::ranges::is_sorted(seen));
    EXPECT_NE(threads.front(), std::this_thread::get_id());
    EXPECT_EQ(std::ranges::count(threads, threads.front()), 1000);
}

TEST(DispatchQueueTest, ABlockLetsGoOfWhatItHoldsOnceRun)
{
    DispatchQueue queue("test.release");
    auto held = std::make_shared<int>(1);
    const std::weak_ptr<int> watch = held;
    queue.async([held = std::move(held)] {});
    queue.sync([] {}); // the next block starts only after the first is gone
    EXPECT_TRUE(watch.expired());
}

TEST(DispatchQueueTest, TheMainQueueRunsOnTheMainThreadLater)
{
    std::thread::id thread;
    DispatchQueue queue("test.main");
    queue.sync([&] { MainQueue::async([&] { thread = std::this_thread::get_id(); }); });
    EXPECT_EQ(thread, std::thread::id());
    MainQueue::drain();
    EXPECT_EQ(thread, std::this_thread::get_id());
}
