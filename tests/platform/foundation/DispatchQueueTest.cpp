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
    bool letGo = false;
    std::shared_ptr<void> held(nullptr, [&](void *) {
        queue.async([&] { letGo = true; }); // the queue's own lock is free by then
    });
    queue.async([held = std::move(held)] {});
    queue.sync([] {}); // the next block starts only after the first is gone
    queue.sync([&] { EXPECT_TRUE(letGo); });
}

TEST(DispatchQueueTest, TheMainQueueRunsOnTheMainThreadLater)
{
    std::vector<std::thread::id> ran;
    const auto post = [&] { MainQueue::async([&] { ran.push_back(std::this_thread::get_id()); }); };
    DispatchQueue("test.main").sync(post);
    post(); // not at once from the main thread either
    EXPECT_TRUE(ran.empty());
    MainQueue::drain();
    EXPECT_EQ(ran, std::vector(2, std::this_thread::get_id()));
}
