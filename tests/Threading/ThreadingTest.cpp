#include "Threading/TriggeredWorker.h"

#include "Threading/RunQueue.h"

#include <atomic>
#include <future>
#include <gmock/gmock.h>
#include <memory>

namespace {

using testing::ElementsAre;

class Worker : public Threading::TriggeredWorker {
public:
    using TriggeredWorker::RunAndWait;
    using TriggeredWorker::Stop;
    using TriggeredWorker::Trigger;
    using TriggeredWorker::TriggeredWorker;
};

TEST(TriggeredWorkerTest, RunsOnItsOwnThreadOnEachTrigger) {
    int runs = 0; // guarded by the waits
    std::thread::id thread;
    Worker worker([&] {
        ++runs;
        thread = std::this_thread::get_id();
    });
    for (int i = 1; i <= 100; ++i) {
        worker.RunAndWait();
        ASSERT_EQ(runs, i);
    }
    EXPECT_NE(thread, std::this_thread::get_id());
}

TEST(TriggeredWorkerTest, TriggerReturnsWhileTheWorkIsStillRunning) {
    std::promise<void> started, gate;
    std::atomic<int> begun = 0, finished = 0;
    Worker worker([&, opened = gate.get_future().share()] {
        if (begun++ == 0)
            started.set_value();
        opened.wait();
        ++finished;
    });
    worker.Trigger();
    started.get_future().wait();
    worker.Trigger();
    worker.Trigger();
    EXPECT_EQ(finished, 0);
    std::thread stopping([&] { worker.Stop(); });
    gate.set_value();
    stopping.join();
    EXPECT_EQ(finished, 1) << "stopping waits for the current run and starts no other";
}

TEST(TriggeredWorkerTest, StopsWithoutEverRunning) {
    Worker stopped([] { ADD_FAILURE() << "it was not triggered"; });
    stopped.Stop();
    stopped.RunAndWait(); // returns at once
}

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

} // namespace
