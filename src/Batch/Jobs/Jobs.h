#pragma once

#include "Batch/AircraftSelection.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace Batch {

class Console;

/// What a job returns.
struct JobOutput {
    JobOutput(std::string result, std::vector<std::string> notes = {})
        : text(std::move(result)), remarks(std::move(notes)) {}

    std::string text;
    std::vector<std::string> remarks; ///< messages for the user
};

/// The work for one aircraft. It runs in a separate process that has a log and whose only output is what it returns.
using Job = std::function<JobOutput(const Sim::AircraftInfo&)>;

/// The result of the job for one aircraft.
struct JobResult {
    const Sim::AircraftInfo* aircraft = nullptr;
    std::string output;                 ///< what the job returned
    std::optional<std::string> failure; ///< the reason, if it threw or its process ended without a result
    std::vector<std::string> remarks = {};
};

/// Runs a job for each aircraft in a separate process, up to `processes` in parallel, so that a crash, an abort or an
/// out-of-memory kill does not affect the others. `use` gets the results in the order of the aircraft, in the calling
/// process; the number of results that wait is limited, and so is their memory. The caller must have a single thread.
/// When it ends, for any reason, the processes end too.
///
/// On a system that cannot fork, each process is this program started with the same arguments and its aircraft's path
/// (JobAircraft), and runs up to this call: whatever a command does before RunJobs also runs in every such process.
///
/// Defined in JobPoolLinux.cpp and JobPoolWindows.cpp.
void RunJobs(const AircraftSelection& aircraft, std::size_t processes, const Job& job,
             const std::function<void(JobResult&&)>& use);

/// Runs one job, prints its remarks and returns its text. A failure ends the command with the aircraft's name and the
/// reason.
std::string RunJob(const Sim::AircraftInfo& aircraft, Console& console, const Job& job);

/// The number of processors available to this program.
std::size_t DefaultProcesses();

} // namespace Batch
