#pragma once

#include "Batch/AircraftSelection.h"
#include "Batch/Jobs/Job.h"

#include <chrono>
#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace Batch {

class Console;

/// The result of the job for one aircraft.
struct JobResult {
    const Sim::AircraftInfo* aircraft = nullptr;
    std::string output;                 ///< what the job returned
    std::optional<std::string> failure; ///< the reason, if it threw or gave no answer
    std::vector<std::string> remarks = {};
};

/// The number of processors available to this program.
std::size_t DefaultProcesses();

struct JobLimits {
    std::size_t processes = DefaultProcesses(); ///< workers in parallel
    std::chrono::milliseconds timeout{60'000};  ///< for the answer for one aircraft
};

/// Results per worker that may wait for a slow result before them.
inline constexpr std::size_t kMaxPendingPerWorker = 8;

/// Runs the command's job for each aircraft in worker processes, so that a crash, an abort, an out-of-memory kill or an
/// endless loop does not affect the others. `use` gets the results in the order of the aircraft, in the calling
/// process; the number of results that wait is limited, and so is their memory. `input` is a text without zero bytes.
/// When the caller ends, for any reason, the workers end too.
///
/// A worker is this program started again with the same arguments (WorkerProcess) and serves one aircraft after the
/// other (ServeJobs). One whose job threw, that died or that gave no answer in time is replaced.
void RunJobs(const AircraftSelection& aircraft, const JobLimits& limits, const std::function<void(JobResult&&)>& use,
             const std::string& input = {});

/// Runs one job, prints its remarks and returns its text. A failure ends the command with the aircraft's name and the
/// reason.
std::string RunJob(const Sim::AircraftInfo& aircraft, Console& console, std::chrono::milliseconds timeout,
                   const std::string& input = {});

/// The main function of a worker: runs the job for each aircraft that RunJobs sends, until there are no more. Returns
/// the exit code.
int ServeJobs(const Job& job);

} // namespace Batch
