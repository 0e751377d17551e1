#pragma once

#include "Annotator/AircraftLoading.h"
#include "Batch/Jobs/Jobs.h"

#include <cstddef>
#include <string>
#include <vector>

namespace CLI {
class App;
class Option;
} // namespace CLI

namespace Batch {

/// What every command that loads aircraft takes.
struct AircraftOptions {
    std::vector<std::string> words; ///< as SelectAircraft takes them
    std::size_t jobs = DefaultProcesses();
    Annotator::LoadOptions load;
};

/// The same for a command that loads a single one.
struct SingleAircraftOptions {
    std::string word;
    Annotator::LoadOptions load;
};

/// Adds --untextured, --jobs N and AIRCRAFT..., and returns the last of them.
CLI::Option* AddAircraftOptions(CLI::App& app, AircraftOptions& options);
/// The same without --untextured, for a command that loads such cockpits anyway.
CLI::Option* AddSelectionOptions(CLI::App& app, AircraftOptions& options);
/// Adds --untextured and AIRCRAFT.
void AddAircraftOptions(CLI::App& app, SingleAircraftOptions& options);

} // namespace Batch
