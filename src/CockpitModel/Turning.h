#pragma once

#include "Utils/LinearAlgebra.h"

#include <optional>
#include <vector>

namespace CockpitModel {

struct ModelAnimation;

/// A rotation of a node in the terms of the object's text, in X-Plane's axes. Angles are in degrees.
struct Turning {
    struct Key {
        double value = 0; ///< of the dataref
        double degrees = 0;
    };

    Utils::Vector3 axis = Utils::Vector3::Zero(); ///< of length 1, in the space of the node's parent
    std::vector<Key> keys;                        ///< at least two, in the order of the animation's time

    /// Linear between the keys, and beyond them at the slope of the last two.
    double DegreesAt(double value) const;
    /// How far it turns from its first to its last key, without a sign.
    double Extent() const;
};

/// Empty for an animation that does not turn. The model keeps rotations of a simple step modulo two full turns: an
/// angle beyond 360 degrees at one of its two ends is not found.
std::optional<Turning> FindTurning(const ModelAnimation& animation);

} // namespace CockpitModel
