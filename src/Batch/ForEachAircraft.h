#pragma once

#include "Batch/AircraftOptions.h"
#include "Batch/AircraftSelection.h"
#include "Batch/Jobs/Jobs.h"

#include <cstddef>
#include <functional>
#include <string>

namespace Batch {

/// The aircraft that a command processes.
struct SelectedAircraft {
    Sim::AircraftList list; ///< owns them
    AircraftSelection selection;
    JobLimits limits;
};

/// The aircraft of the installation that the options select. Errors end the command, as in LoadInstallation and
/// SelectAircraft.
SelectedAircraft LoadSelection(const AircraftOptions& options, Console& console);

/// How a command uses the results of its job. Both functions run in the calling process, in list order.
struct ResultUse {
    std::function<void(const Sim::AircraftInfo& info, const std::string& output)> take;
    /// For an aircraft whose job failed; null prints a message.
    std::function<void(const Sim::AircraftInfo& info, const std::string& reason)> fail = nullptr;
    bool showsProgress = false;
};

/// Runs the command's job for each aircraft, as RunJobs does, and returns the number of aircraft whose job failed.
std::size_t ForEachAircraft(const SelectedAircraft& aircraft, Console& console, const ResultUse& use);

} // namespace Batch
