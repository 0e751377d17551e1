#include "Threading/RunQueue.h"

#include <gmock/gmock.h>
#include <memory>
#include <thread>

namespace {

using testing::ElementsAre;

TEST(RunQueueTest, RunsWorkOnceInOrderAndNestedPostsInTheNextFrame) {
    Threading::RunQueue queue;
    std::vector<int> ran;
    queue.Post([&] {
        ran.push_back(1);
        queue.Post([&] { ran.push_back(3); });
    });
    queue.Post([&] { ran.push_back(2); });
    queue.RunAll();
    EXPECT_THAT(ran, ElementsAre(1, 2));
    queue.RunAll();
    queue.RunAll();
    EXPECT_THAT(ran, ElementsAre(1, 2, 3));
}

TEST(RunQueueTest, DestroysEachItemBeforeTheNextRunsAndAllAfterAnException) {
    Threading::RunQueue queue;
    auto held = std::make_shared<int>(0);
    const std::weak_ptr watched = held;
    queue.Post([kept = std::move(held)] {});
    queue.Post([&] { EXPECT_TRUE(watched.expired()); });
    queue.Post(nullptr);
    queue.Post([] { ADD_FAILURE() << "work after an exception ran"; });
    EXPECT_THROW(queue.RunAll(), std::bad_function_call);
    queue.RunAll();
}

TEST(RunQueueTest, AcceptsWorkFromOtherThreadsDuringAFrame) {
    Threading::RunQueue queue;
    int ran = 0;
    std::thread poster([&] {
        for (int i = 0; i < 1000; ++i)
            queue.Post([&] { ++ran; });
    });
    for (int i = 0; i < 1000; ++i)
        queue.RunAll();
    poster.join();
    queue.RunAll();
    EXPECT_EQ(ran, 1000);
}

} // namespace
