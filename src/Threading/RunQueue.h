#pragma once

#include <deque>
#include <functional>
#include <mutex>

namespace Threading {

/// Work to run at the start of the next frame. Any thread may post.
class RunQueue {
public:
    void Post(std::function<void()> work);
    /// Runs what was posted before this call, in order; work posted meanwhile waits for the next call. An exception is
    /// passed on to the caller and drops the remaining items.
    void RunAll();

private:
    std::mutex mutex; ///< guards items; not held while work runs
    std::deque<std::function<void()>> items;
};

} // namespace Threading
