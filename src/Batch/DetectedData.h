#pragma once

#include "CockpitModel/Touch/TouchTypes.h"

#include <cstdint>
#include <map>
#include <string>
#include <utility>

namespace Batch {

/// What a detected-data file says of one part.
struct DetectedPart {
    CockpitModel::TouchInteractionType interactionType = CockpitModel::TouchInteractionType::None;
    CockpitModel::TouchEventType eventType = CockpitModel::TouchEventType::Wheel;
    bool reverse = false;

    bool operator==(const DetectedPart&) const = default;
};

/// By node and part.
using DetectedParts = std::map<std::pair<std::int32_t, std::int32_t>, DetectedPart>;

/// The parts of a detected-data file. One that is not as it has to be throws std::runtime_error with the line, what
/// stands there and what is needed.
DetectedParts ReadDetectedData(const std::string& path);

} // namespace Batch
