#pragma once

#include "Batch/Jobs/Jobs.h"

namespace Batch {

/// Runs a job and encodes what it returned or threw, for sending to the parent. Never empty.
std::string EncodeResult(const Job& job, const Sim::AircraftInfo& aircraft);
/// Decodes a complete encoded result.
JobResult DecodeResult(const Sim::AircraftInfo& aircraft, const std::string& answer);

/// Results per process that may wait for a slow result before them.
inline constexpr std::size_t kMaxPendingPerProcess = 8;

} // namespace Batch
