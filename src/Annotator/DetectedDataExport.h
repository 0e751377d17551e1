#pragma once

#include "CockpitModel/SceneGraph.h"
#include "Sim/AircraftListLoader.h"

#include <string>

namespace Annotator {

/// The folder of the detected-data files of this build, relative to the installation.
std::string DetectedDataFolder();
/// The name of an aircraft's detected-data file in that folder.
std::string DetectedDataFileName(const Sim::AircraftInfo& info);
/// One XML document with the detected types of all parts, as it stands in the file.
std::string DetectedDataXml(const CockpitModel::SceneGraph& sceneGraph);

/// Writes the detected-data files of all aircraft, one aircraft in memory at a time. One whose model cannot be loaded
/// is logged and skipped, a file that cannot be written is passed over. A folder that cannot be made, or a pilot's eye
/// that is no number, ends the run with the exception.
void SaveDetectedData(Sim::AircraftListLoader& loader);

} // namespace Annotator
