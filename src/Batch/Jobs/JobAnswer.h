#pragma once

#include "Batch/Jobs/Jobs.h"

namespace Batch {

/// Runs a job; what it returned or threw is the answer that its process sends. Never empty.
std::string JobAnswer(const Job& job, const Sim::AircraftInfo& aircraft);
/// The result of a whole answer.
JobResult ReadJobAnswer(const Sim::AircraftInfo& aircraft, const std::string& answer);

/// Results that may wait for a slow one ahead of them, for each process.
inline constexpr std::size_t kAhead = 8;

} // namespace Batch
