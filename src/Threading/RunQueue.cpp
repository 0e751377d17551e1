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
    // Outside the lock, because the work may post. Each item is destroyed, with what it captured, before the next runs.
    while (!taken.empty()) {
        taken.front()();
        taken.pop_front();
    }
}

} // namespace Threading
