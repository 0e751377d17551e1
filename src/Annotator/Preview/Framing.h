#pragma once

#include "CockpitModel/SceneGraph.h"
#include "Rendering/Camera.h"

#include <functional>
#include <optional>
#include <vector>

namespace Annotator {

/// The corners of the wanted parts in world space, at the current positions of their animations. Corners that are not
/// finite are left out. `wanted` must not visit the scene graph.
std::vector<Utils::Vector3> WorldCorners(CockpitModel::SceneGraph& sceneGraph,
                                         const std::function<bool(const CockpitModel::NodePart&)>& wanted);

/// The rotation of a camera that looks at the centre of the points' bounding box, without roll.
Utils::Vector3 RotationTowards(const std::vector<Utils::Vector3>& points, const Rendering::Camera& camera);

struct Framing {
    Utils::Vector3 position; ///< in the camera's axes
    float farPlane = 0;      ///< metres; just beyond the farthest point
};

/// The camera position from which the points fill the image, with unchanged view direction. It keeps a minimum distance
/// from small parts. Empty if there are no points.
std::optional<Framing> FramePoints(const std::vector<Utils::Vector3>& points, const Rendering::Camera& camera,
                                   float aspect);

} // namespace Annotator
