#pragma once

#include "CockpitModel/SceneGraph.h"
#include "Rendering/Camera.h"

#include <functional>
#include <optional>
#include <vector>

namespace Annotator {

/// The corners of some parts in the world, at the last positions of their animations. Corners that are not finite are
/// left out. `wanted` must not start a visit of the scene graph.
std::vector<Utils::Vector3> WorldCorners(CockpitModel::SceneGraph& sceneGraph,
                                         const std::function<bool(const CockpitModel::NodePart&)>& wanted);

/// The rotation that turns a camera towards the middle of the points' bounding box, without roll.
Utils::Vector3 RotationTowards(const std::vector<Utils::Vector3>& points, const Rendering::Camera& camera);

struct Framing {
    Utils::Vector3 position; ///< in the camera's axes
    float farPlane = 0;      ///< metres; just beyond the farthest point
};

/// Where a camera of the canvas has to stand for the points to fill its picture, in the direction in which it looks
/// already. It keeps a hand's breadth away from small things. Empty without a point.
std::optional<Framing> FramePoints(const std::vector<Utils::Vector3>& points, const Rendering::Camera& camera,
                                   float aspect);

} // namespace Annotator
