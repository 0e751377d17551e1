#pragma once

#include "CockpitModel/SceneGraph.h"
#include "Sim/AircraftListLoader.h"

#include <stdexcept>
#include <string>
#include <vector>

namespace Annotator {

/// The folder of the detected-data files of this build, relative to the installation.
std::string DetectedDataFolder();
/// The name of an aircraft's detected-data file in that folder.
std::string DetectedDataFileName(const Sim::AircraftInfo& info);
/// One XML document with the detected types of all parts, as it stands in the file.
std::string DetectedDataXml(const CockpitModel::SceneGraph& sceneGraph);

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
