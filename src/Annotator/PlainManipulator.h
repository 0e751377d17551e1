#pragma once

#include "CockpitModel/Touch/MouseRect.h"

#include <optional>
#include <string>
#include <utility>

namespace Annotator {

/// What the plain reading keeps of a manipulator.
struct PlainManipulator {
    const char* kind = "other"; ///< "toggle", "drag" or "other"
    /// The values of the dataref; empty for a kind without one.
    std::optional<std::pair<float, float>> range = std::nullopt;
    std::string dataref = {};
};

PlainManipulator PlainManipulatorOf(const CockpitModel::MouseRect& rect);

} // namespace Annotator
