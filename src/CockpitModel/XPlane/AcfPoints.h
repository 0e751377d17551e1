#pragma once

#include "Utils/LinearAlgebra.h"

#include <optional>
#include <string_view>

namespace CockpitModel {

/// Points of an .acf: metres from the aircraft's reference point, in X-Plane's axes (x right, y up, z aft).
struct AcfPoints {
    std::optional<Utils::Vector3> eye; ///< of the pilot; empty if the text does not give it
    Utils::Vector3 centreOfGravity = Utils::Vector3::Zero();
};

/// A number that is missing or cannot be read is 0.
AcfPoints ReadAcfPoints(std::string_view acf);

} // namespace CockpitModel
