#pragma once

#include "Batch/AircraftOptions.h"
#include "Batch/AircraftSelection.h"
#include "Batch/Jobs/Jobs.h"

#include <cstddef>
#include <functional>
#include <string>

namespace Batch {

/// The aircraft that a command processes, and in how many processes.
struct SelectedAircraft {
    Sim::AircraftList list; ///< owns them
    AircraftSelection selection;
    std::size_t jobs = 1;
};

/// Those of the installation that the options name; ends the command as LoadInstallation and SelectAircraft do.
SelectedAircraft LoadSelection(const AircraftOptions& options, Console& console);

/// What a command does with the results of its job. All of it runs in the calling process, in list order.
struct ResultUse {
    std::function<void(const Sim::AircraftInfo& info, const std::string& output)> take;
    /// For an aircraft whose job failed; a message without it.
    std::function<void(const Sim::AircraftInfo& info, const std::string& reason)> fail = nullptr;
    bool showsProgress = false;
};

/// Runs a job for each of the aircraft as RunJobs does, and returns the number of those whose job failed.
std::size_t ForEachAircraft(const SelectedAircraft& aircraft, Console& console, const Job& job, const ResultUse& use);

} // namespace Batch
