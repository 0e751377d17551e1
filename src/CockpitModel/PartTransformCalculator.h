#pragma once

#include "CockpitModel/ModelAnimation.h"
#include "CockpitModel/MotionTable.h"
#include "Utils/LinearAlgebra.h"

#include <optional>
#include <string>

namespace CockpitModel {

struct Node;
struct NodePart;

/// Tells where a part is when one animation at or above it stands at a position of one's choice. The animations
/// between the part and that one stay where they were at construction, those above it where the scene graph last
/// placed them. Borrows part and animation; user interface thread.
class PartTransformCalculator {
public:
    /// A fatal error when the animation belongs to no node at or above the part.
    PartTransformCalculator(const NodePart& part, const ModelAnimation& animation);

    /// The part's world matrix with the animation at position t.
    Utils::Matrix4 TransformAt(float t) const;

    const NodePart* part;
    const Node* node = nullptr; ///< the one that the animation moves
    const ModelAnimation* animation;
    Utils::Matrix4 prefix = Utils::Matrix4::Identity(); ///< from the part's space into that of `node`

private:
    MotionTable motions;
    MotionTable::Motion motion; ///< of `animation`
};

/// The calculator for the nearest animation at or above the part that moves anything; empty when there is none.
std::optional<PartTransformCalculator> FindPartTransform(const NodePart& part);

/// True for an animation that follows the yoke's roll, or its pitch: the name of the simulator's variable may stand
/// anywhere in the animation's name.
bool IsYokeRollName(const std::string& animationName);
bool IsYokePitchName(const std::string& animationName);

} // namespace CockpitModel
