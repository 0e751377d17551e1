#pragma once

#include "Annotator/Lint/Lint.h"
#include "Sim/AircraftInfo.h"

#include <vector>

namespace Annotator {

/// The findings in an aircraft's VR configuration: its text, and how it fits the cockpit in the full reading; most
/// severe first. An aircraft without the file has one finding, a note.
std::vector<LintFinding> CheckVrConfig(const Sim::AircraftInfo& info);

} // namespace Annotator
