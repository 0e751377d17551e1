#pragma once

#include "CockpitModel/PartAddress.h"
#include "CockpitModel/Touch/TouchTypes.h"

#include <cstdint>
#include <optional>
#include <string>

namespace CockpitModel {

/// The user's annotation of one part, which is identified only by its position in the scene graph.
struct AnnotationRecord {
    std::int32_t NodeId = -1;
    std::int32_t PartId = -1;
    std::optional<TouchInteractionType> InteractionType = std::nullopt;     ///< replaces the detected type
    std::optional<TouchInteractionType> InteractionTypeTest = std::nullopt; ///< what detection should find
    std::optional<TouchEventType> EventType = std::nullopt;                 ///< replaces the detected event type
    bool Reverse = false;
    std::optional<std::string> Tooltip = std::nullopt; ///< replaces the tooltip of the part's rectangle

    PartAddress Address() const { return {NodeId, PartId}; }
    bool operator==(const AnnotationRecord&) const = default;
};

} // namespace CockpitModel
