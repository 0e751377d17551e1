#pragma once

#include <deque>
#include <functional>
#include <mutex>

namespace Threading {

/// Work for the head of the next frame. Any thread may post.
class RunQueue {
public:
    void Post(std::function<void()> work);
    /// Runs what was posted before this call, in order; what the work itself posts waits for the next call. An
    /// exception passes through and drops the rest.
    void RunAll();

private:
    std::mutex mutex; ///< guards items; not held while work runs
    std::deque<std::function<void()>> items;
};

} // namespace Threading
