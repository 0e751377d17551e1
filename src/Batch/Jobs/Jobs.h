#pragma once

#include "Batch/AircraftSelection.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>

namespace Batch {

/// What is done for one aircraft. It runs in a process of its own, with a log and without anything to write but the
/// string that it returns.
using Job = std::function<std::string(const Sim::AircraftInfo&)>;

/// What came of the job for one aircraft.
struct JobResult {
    const Sim::AircraftInfo* aircraft = nullptr;
    std::string output;                 ///< what the job returned
    std::optional<std::string> failure; ///< in words, where it threw or its process ended without an answer
};

/// Runs a job for each aircraft in a process of its own, up to `processes` at once, so that a crash, an abort or a kill
/// for memory in one leaves the others. `use` gets the results in the order of the aircraft, in the calling process;
/// few results wait for their turn, so that memory is bounded. The caller must have a single thread. When it ends,
/// however that comes about, so do the processes.
///
/// Where the system cannot copy a process, each one is this program started once more with the same words and its
/// aircraft's path (JobAircraft), and comes as far as this call: what stands ahead of it is done in each of them.
///
/// Defined in JobPoolLinux.cpp and JobPoolWindows.cpp.
void RunJobs(const AircraftSelection& aircraft, std::size_t processes, const Job& job,
             const std::function<void(JobResult&&)>& use);

/// One job, whose failure ends the command with the reason behind the aircraft's name.
std::string RunJob(const Sim::AircraftInfo& aircraft, const Job& job);

/// As many processes as the machine has processors for this program.
std::size_t DefaultProcesses();

} // namespace Batch
