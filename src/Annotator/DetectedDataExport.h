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
/// The content of a detected-data file: an XML document with the detected types of all parts.
std::string DetectedDataXml(const CockpitModel::SceneGraph& sceneGraph);

/// An aircraft that ended the export; what() contains its name and the reason.
struct AircraftExportError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

struct ExportResult {
    std::size_t files = 0;
    std::vector<std::string> failed; ///< the aircraft without a file, each with the reason
};

/// Writes the detected-data files of all aircraft, with one aircraft in memory at a time. An aircraft whose model
/// cannot be loaded is logged and skipped; a file that cannot be written is skipped. If the folder cannot be created,
/// the exception ends the run; a pilot's eye that is not a number ends it with an AircraftExportError.
ExportResult SaveDetectedData(Sim::AircraftListLoader& loader);

} // namespace Annotator
