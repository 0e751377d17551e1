#pragma once

#include "Utils/NonAssignable.h"

#include <chrono>
#include <memory>
#include <string>
#include <vector>

namespace Batch {

/// A process of this program with the same arguments after kWorkerOption, in the folder in which this process was
/// started, with a pipe for its input and one for its output. It ends with this object and with this process. One
/// thread only. One source file per system.
class WorkerProcess : public Utils::NonAssignable {
public:
    /// Throws std::runtime_error with the system's reason.
    WorkerProcess();
    ~WorkerProcess();

    /// False if the process has ended.
    bool Send(const std::string& bytes);
    /// Appends what the process has sent since the last call, without waiting. False if it will send no more.
    bool Receive(std::string& bytes);
    /// Waits until the process has ended. Why, for a message.
    std::string HowItEnded();

    /// Returns after `longest`, or earlier when one of the processes has sent something or ended.
    static void WaitForAny(const std::vector<WorkerProcess*>& processes, std::chrono::milliseconds longest);

private:
    struct State;
    std::unique_ptr<State> state;
};

} // namespace Batch
