#pragma once

#include "Batch/Jobs/Jobs.h"

namespace Batch {

/// Runs a job and encodes what it returned or threw: a kind, a size and the text.
std::string EncodeAnswer(const Job& job, const Sim::AircraftInfo& aircraft, const std::string& input);
/// Decodes what a worker sent so far; null if the answer is not complete.
std::optional<JobResult> DecodeAnswer(const Sim::AircraftInfo& aircraft, std::string& received);

} // namespace Batch
