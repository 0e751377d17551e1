#pragma once

#include "Utils/NonAssignable.h"

#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

namespace Threading {

/// A thread that runs one callable each time it is triggered. A trigger during a run counts for nothing beyond it. The
/// first one starts the thread, so that a worker that nobody asks costs none.
class TriggeredWorker : public Utils::NonAssignable {
public:
    explicit TriggeredWorker(std::function<void()> work);

protected:
    /// Stops; a class whose fields the work touches calls Stop first in its own destructor.
    ~TriggeredWorker();

    void Trigger();
    void RunAndWait();
    /// Ends the thread when its present run is done. A second call does nothing.
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
