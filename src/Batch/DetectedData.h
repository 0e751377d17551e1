#pragma once

#include "CockpitModel/PartAddress.h"
#include "CockpitModel/Touch/TouchTypes.h"

#include <map>
#include <string>

namespace Batch {

/// What a detected-data file says of one part.
struct DetectedPart {
    CockpitModel::TouchInteractionType interactionType = CockpitModel::TouchInteractionType::None;
    CockpitModel::TouchEventType eventType = CockpitModel::TouchEventType::Wheel;
    bool reverse = false;

    bool operator==(const DetectedPart&) const = default;
};

using DetectedParts = std::map<CockpitModel::PartAddress, DetectedPart>;

/// The parts of a detected-data file. One that is not as it has to be throws std::runtime_error with the line, what
/// stands there and what is needed.
DetectedParts ReadDetectedData(const std::string& path);

} // namespace Batch
