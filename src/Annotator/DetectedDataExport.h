#pragma once

#include "Sim/AircraftListLoader.h"

#include <cstddef>
#include <stdexcept>
#include <string>
#include <vector>

namespace Annotator {

/// An aircraft that ended the export; what() names it and says why.
struct AircraftExportError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

struct ExportResult {
    std::size_t files = 0;
    std::vector<std::string> failed; ///< the aircraft without a file, each with the reason
};

/// Writes the detected-data files of all aircraft, one aircraft in memory at a time. One whose model cannot be loaded
/// is logged and skipped, a file that cannot be written is passed over. A folder that cannot be made ends the run with
/// the exception, a pilot's eye that is no number with an AircraftExportError.
ExportResult SaveDetectedData(Sim::AircraftListLoader& loader);

} // namespace Annotator
