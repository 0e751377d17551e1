#pragma once

#include "CockpitModel/Annotations/AnnotationStore.h"
#include "CockpitModel/NodePart.h"
#include "Rendering/DrawParams.h"
#include "Utils/LinearAlgebra.h"

#include <cstdint>
#include <string>
#include <vector>

namespace Annotator {

/// What the colours of the parts in the preview mean.
enum class PartColours : std::uint8_t {
    Standard, ///< textures, tinted by state
    ByType,   ///< the interaction type, override included
    ByResult, ///< the test against the detected type
};

/// A colour, red, green, blue from 0 to 1, with its meaning.
struct LegendEntry {
    Utils::Vector3 colour;
    std::string text;
};

/// All colours of a choice, which eyes with any kind of colour blindness can tell apart; empty for Standard.
std::vector<LegendEntry> Legend(PartColours colours);

/// A part's colour of the legend. Standard throws std::invalid_argument.
Utils::Vector3 ColourOf(PartColours colours, const CockpitModel::NodePart& part,
                        const CockpitModel::PartEvaluation& evaluation);

/// Draws a part in a colour of its own, of which its texture changes only the brightness.
void Paint(Rendering::GeometryDrawParams& params, const Utils::Vector3& colour);

} // namespace Annotator
