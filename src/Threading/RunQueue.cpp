#include "Threading/RunQueue.h"

#include <utility>

namespace Threading {

void RunQueue::Post(std::function<void()> work) {
    const std::lock_guard lock(mutex);
    items.push_back(std::move(work));
}

void RunQueue::RunAll() {
    std::deque<std::function<void()>> taken;
    {
        const std::lock_guard lock(mutex);
        taken.swap(items);
    }
    // Outside the lock, as the work may post; each one goes before the next runs, with what it holds on to.
    while (!taken.empty()) {
        taken.front()();
        taken.pop_front();
    }
}

} // namespace Threading
