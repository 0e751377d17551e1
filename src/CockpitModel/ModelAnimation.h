#pragma once

#include "CockpitModel/Blocks/ModelBlocks.h"
#include "Utils/LinearAlgebra.h"

#include <string>
#include <vector>

namespace CockpitModel {

/// One node's animation: tracks of keys in ascending time, which combine by multiplication. It does not change after
/// its scene graph is built, except for `position` and `enabled`, which only the user interface thread accesses.
struct ModelAnimation {
    bool enabled = false; ///< true for the animations above the primary yoke
    std::string name;     ///< X-Plane's dataref, or "Dummy Animation"
    std::vector<std::vector<RiffBlockXANK>> tracks;
    float position = 0;                ///< times 100 / length, the fraction of the time axis
    float rangeLow = 0, rangeHigh = 0; ///< the dataref's values at both ends
    float scale = 1;
    float length = 0; ///< end of the time axis
    std::string text;
    bool keyFramed = false;     ///< its motion is measured between the first and the last key
    bool outsideBlocks = false; ///< a step outside all animation blocks of the cockpit object
    float loop = 0;             ///< the dataref's value is taken modulo this; 0 for none. Moves nothing here
};

/// The name of an animation that moves nothing.
inline constexpr const char* kDummyAnimationName = "Dummy Animation";

/// Multiplies m from the left by the animation's matrix at a position, so that the animation acts in m's local frame: m
/// = A * m for each track in order. A track of fewer than two keys throws OutOfRange.
void ApplyAnimation(const ModelAnimation& animation, Utils::Matrix4& m, float position);

} // namespace CockpitModel
