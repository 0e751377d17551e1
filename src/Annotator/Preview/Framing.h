#pragma once

#include "Annotator/Preview/CameraMove.h"
#include "CockpitModel/SceneGraph.h"
#include "Rendering/Camera.h"

#include <functional>
#include <limits>
#include <optional>
#include <vector>

namespace Annotator {

/// Selects parts. It must not visit the scene graph.
using PartFilter = std::function<bool(const CockpitModel::NodePart&)>;

/// How a camera frames parts.
struct FramingRule {
    bool turn = false;    ///< look at the middle of the parts instead of keeping the direction
    float filled = 0.95f; ///< share of the image's width or height that the parts take
    /// Metres from the camera to the middle of the parts. A closer camera does not show all of them.
    float farthest = std::numeric_limits<float>::infinity();
};

struct Framing {
    CameraPose pose;
    float farPlane = 0; ///< metres; just beyond the farthest point
};

/// The corners of the wanted parts in world space, at the current positions of their animations. Corners that are not
/// finite are left out.
std::vector<Utils::Vector3> WorldCorners(CockpitModel::SceneGraph& sceneGraph, const PartFilter& wanted);

/// The camera pose from which the points fill the image, seen from the side of `camera`. It keeps a minimum distance
/// from small parts. Empty if there are no points.
std::optional<Framing> FramePoints(const std::vector<Utils::Vector3>& points, Rendering::Camera camera, float aspect,
                                   const FramingRule& rule = {});

/// The same for the corners of the wanted parts.
std::optional<Framing> FrameParts(CockpitModel::SceneGraph& sceneGraph, const PartFilter& wanted,
                                  const Rendering::Camera& camera, float aspect, const FramingRule& rule = {});

/// One part, which takes a third of the view, seen from the pilot's eye's side. `eye` is in the camera's axes.
std::optional<Framing> FramePart(CockpitModel::SceneGraph& sceneGraph, const CockpitModel::NodePart& part,
                                 const Utils::Vector3& eye, float aspect);

/// The touchable parts that are entirely within 10 metres of the median one, seen from behind; all parts if there is no
/// such part.
std::optional<Framing> FrameCockpit(CockpitModel::SceneGraph& sceneGraph, float aspect);

/// Whether a triangle of a wanted part is inside the view, hidden by others or not.
bool SeesAnyPart(CockpitModel::SceneGraph& sceneGraph, const PartFilter& wanted, const Utils::Matrix4& view,
                 const Utils::Matrix4& projection);

} // namespace Annotator
