#pragma once

#include "Annotator/AircraftLoading.h"
#include "Batch/Jobs/Jobs.h"

#include <string>
#include <vector>

namespace CLI {
class App;
class Option;
} // namespace CLI

namespace Batch {

/// The options of commands that load aircraft.
struct AircraftOptions {
    std::vector<std::string> names; ///< as in SelectAircraft
    JobLimits limits;
    Annotator::LoadOptions load;
};

/// The options of commands that load a single aircraft.
struct SingleAircraftOptions {
    std::string name;
    JobLimits limits;
    Annotator::LoadOptions load;
};

/// Adds --untextured, --jobs N, --timeout SECONDS and AIRCRAFT..., and returns the last of them.
CLI::Option* AddAircraftOptions(CLI::App& app, AircraftOptions& options);
/// Without --untextured, for a command that always loads such cockpits.
CLI::Option* AddSelectionOptions(CLI::App& app, AircraftOptions& options);
/// What --full does.
void UseFullReading(Annotator::LoadOptions& load);
/// Adds --full, the full reading.
void AddFullOption(CLI::App& app, Annotator::LoadOptions& load);
/// Adds --untextured, --timeout SECONDS and AIRCRAFT.
void AddAircraftOptions(CLI::App& app, SingleAircraftOptions& options);
/// Without --untextured, for a command that always loads such cockpits.
void AddSelectionOptions(CLI::App& app, SingleAircraftOptions& options);

} // namespace Batch
