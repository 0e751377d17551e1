#include "Threading/RunQueue.h"

#include <gmock/gmock.h>
#include <memory>
#include <stdexcept>

namespace {

using testing::ElementsAre;

TEST(RunQueueTest, RunsWorkOnceInOrderAndItsOwnPostsInTheNextFrame) {
    Threading::RunQueue queue;
    std::vector<int> ran;
    queue.RunAll();
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

TEST(RunQueueTest, LetsGoOfEachWorkBeforeTheNextRuns) {
    Threading::RunQueue queue;
    auto held = std::make_shared<int>(0);
    std::vector<long> owners;
    queue.Post([held] {});
    queue.Post([&owners, weak = std::weak_ptr(held)] { owners.push_back(weak.use_count()); });
    held.reset();
    queue.RunAll();
    EXPECT_THAT(owners, ElementsAre(0));
}

TEST(RunQueueTest, AnExceptionDropsWhatIsBehindIt) {
    Threading::RunQueue queue;
    bool ran = false;
    queue.Post(nullptr);
    queue.Post([&] { ran = true; });
    EXPECT_THROW(queue.RunAll(), std::bad_function_call);
    queue.RunAll();
    EXPECT_FALSE(ran);
}

} // namespace
