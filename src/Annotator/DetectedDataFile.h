#pragma once

#include "CockpitModel/PartAddress.h"
#include "CockpitModel/Reading.h"
#include "CockpitModel/Touch/TouchTypes.h"

#include <map>
#include <string>

namespace CockpitModel {
class SceneGraph;
}
namespace Sim {
struct AircraftInfo;
}

namespace Annotator {

/// The folder of the detected-data files of this build, relative to the installation. The full reading has a folder of
/// its own, because it has further parts and other types.
std::string DetectedDataFolder(CockpitModel::Reading reading = CockpitModel::Reading::Plain);
/// The name of an aircraft's detected-data file in that folder.
std::string DetectedDataFileName(const Sim::AircraftInfo& info);
/// The content of a detected-data file: an XML document with the detected types of all parts.
std::string DetectedDataXml(const CockpitModel::SceneGraph& sceneGraph);

/// One part of a detected-data file.
struct DetectedPart {
    CockpitModel::TouchInteractionType interactionType = CockpitModel::TouchInteractionType::None;
    CockpitModel::TouchEventType eventType = CockpitModel::TouchEventType::Wheel;
    bool reverse = false;

    bool operator==(const DetectedPart&) const = default;
};

using DetectedParts = std::map<CockpitModel::PartAddress, DetectedPart>;

/// The parts of a detected-data file. An invalid file throws std::runtime_error with the line, its content and what is
/// expected.
DetectedParts ReadDetectedData(const std::string& path);

} // namespace Annotator
