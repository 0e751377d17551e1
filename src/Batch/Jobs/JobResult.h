#pragma once

#include "Batch/Jobs/Jobs.h"

namespace Batch {

/// Runs a job; what it returned or threw is the answer that its process sends. Never empty.
std::string EncodeResult(const Job& job, const Sim::AircraftInfo& aircraft);
/// The result of a whole answer.
JobResult DecodeResult(const Sim::AircraftInfo& aircraft, const std::string& answer);

/// Results that may wait for a slow one ahead of them, for each process.
inline constexpr std::size_t kMaxPendingPerProcess = 8;

} // namespace Batch
