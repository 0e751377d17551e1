#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>

namespace Batch {

/// What came of one job.
struct JobResult {
    std::size_t index = 0;
    std::string output;                 ///< what the job returned
    std::optional<std::string> failure; ///< in words, where it threw or its process ended without an answer
};

/// Runs in a process of its own, with a log and without anything to write but the string that it returns.
using Job = std::function<std::string(std::size_t index)>;

/// Runs the jobs 0 to `count` - 1 in processes of their own, up to `processes` at once, so that a crash, an abort or a
/// kill for memory in one leaves the others. `use` gets the results in the order of the indices, in the calling
/// process and with ending signals held back; few results wait for their turn, so that memory is bounded. The caller
/// must have a single thread. When it ends, however that comes about, so do the processes.
void RunJobs(std::size_t count, std::size_t processes, const Job& job, const std::function<void(JobResult&&)>& use);

/// One job, whose failure ends the command with the reason behind the name of what it was about.
std::string RunJob(const std::string& subject, const std::function<std::string()>& job);

/// As many processes as the machine has processors for this program.
std::size_t DefaultProcesses();

} // namespace Batch
