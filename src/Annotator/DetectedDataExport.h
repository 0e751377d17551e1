#pragma once

#include "CockpitModel/Reading.h"
#include "Sim/AircraftListLoader.h"

#include <cstddef>
#include <stdexcept>
#include <string>
#include <vector>

namespace Annotator {

/// An aircraft that ended the export; what() contains its name and the reason.
struct AircraftExportError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

struct ExportResult {
    std::size_t files = 0;
    std::vector<std::string> failed; ///< the aircraft without a file, each with the reason
};

/// Writes the reading's detected-data files of all aircraft, with one aircraft in memory at a time. An aircraft whose
/// model cannot be loaded is logged and skipped; a file that cannot be written is skipped. If the folder cannot be
/// created, the exception ends the run; a pilot's eye that is not a number ends it with an AircraftExportError.
ExportResult SaveDetectedData(Sim::AircraftListLoader& loader,
                              CockpitModel::Reading reading = CockpitModel::Reading::Plain);

} // namespace Annotator
