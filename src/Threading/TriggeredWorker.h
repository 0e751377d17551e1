#pragma once

#include "Utils/NonAssignable.h"

#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

namespace Threading {

/// A thread that runs one callable each time it is triggered. A trigger during a run does not cause another run. The
/// first trigger starts the thread, so an unused worker has none.
class TriggeredWorker : public Utils::NonAssignable {
public:
    explicit TriggeredWorker(std::function<void()> work);

protected:
    /// Calls Stop. A derived class whose fields the work uses must call Stop first in its own destructor.
    ~TriggeredWorker();

    void Trigger();
    void RunAndWait();
    /// Ends the thread after its current run. A second call does nothing.
    void Stop();

private:
    void StartOnce();
    void Loop();

    std::function<void()> work;
    std::mutex workerMutex; ///< guards the four flags
    std::condition_variable changed;
    bool pending = false, done = false, stop = false, stopped = false;
    std::thread thread;
};

} // namespace Threading
