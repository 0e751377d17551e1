#pragma once

#include "CockpitModel/SceneGraph.h"
#include "Utils/LinearAlgebra.h"

#include <vector>

namespace Annotator {

/// A part that should be visible, with the middle of its bounding box in world space.
struct ViewTarget {
    const CockpitModel::NodePart* part = nullptr;
    Utils::Vector3 middle = Utils::Vector3::Zero();
};

/// Moves a viewer who looks along the world's z axis forward until walls and seats no longer hide the targets: the
/// first place from which most of those are in view that can be seen from any place up to the middle of the targets.
/// Tests rays to a limited number of targets, so its time depends only on the number of parts. World space.
Utils::Vector3 FindClearView(CockpitModel::SceneGraph& sceneGraph, const std::vector<ViewTarget>& targets,
                             const Utils::Vector3& place, float aspect);

} // namespace Annotator
