#pragma once

#include "CockpitModel/ModelAnimation.h"
#include "CockpitModel/MotionTable.h"
#include "CockpitModel/Reading.h"
#include "Utils/LinearAlgebra.h"

#include <optional>
#include <string_view>

namespace CockpitModel {

struct Node;
struct NodePart;

/// Computes a part's transform with one animation at or above it set to a given position. Animations between the part
/// and that one keep their positions from construction, those above it from the scene graph's last update. Borrows part
/// and animation; user interface thread.
class PartTransformCalculator {
public:
    /// A fatal error if the animation does not belong to a node at or above the part.
    PartTransformCalculator(const NodePart& part, const ModelAnimation& animation);

    /// The part's world matrix with the animation at position t.
    Utils::Matrix4 TransformAt(float t) const;

    const NodePart* part;
    const Node* node = nullptr; ///< the animation's node
    const ModelAnimation* animation;
    Utils::Matrix4 prefix = Utils::Matrix4::Identity(); ///< from the part's space to that of `node`

private:
    MotionTable motions;
    MotionTable::Motion motion; ///< of `animation`
};

/// The calculator for the nearest animation at or above the part that moves anything; empty if there is none.
std::optional<PartTransformCalculator> FindPartTransform(const NodePart& part);

/// True for an animation driven by the yoke's roll or pitch: its name contains the name of the simulator's variable.
bool IsYokeRollName(std::string_view animationName, Reading reading = Reading::Plain);
bool IsYokePitchName(std::string_view animationName, Reading reading = Reading::Plain);

} // namespace CockpitModel
