#include "Annotator/Preview/PartPictures.h"

#include "Annotator/Preview/CanvasControl.h"
#include "Annotator/Preview/Framing.h"

#include <algorithm>
#include <limits>

namespace Annotator {

namespace {

using Utils::Vector3;

/// After the end of the selection's pulse.
constexpr double kPictureTime = 1.0; // seconds
/// What is nearer to the camera than the parts by more is not drawn, as walls would hide them; metres.
constexpr float kKeptBefore = 0.15f;

float NearestDepth(const std::vector<Vector3>& points, const Utils::Matrix4& view) {
    float nearest = std::numeric_limits<float>::max();
    for (const Vector3& point : points)
        nearest = std::min(nearest, Utils::TransformPoint(point, view).z());
    return nearest;
}

} // namespace

PartPictures::PartPictures(const OpenedAircraft& openedAircraft, const BuiltAircraft& builtAircraft,
                           const CockpitModel::AnnotationStore& annotations)
    : opened(openedAircraft), built(builtAircraft) {
    preview.StopClock(kPictureTime);
    preview.SetScene(built.sceneGraph, built.model.get(), &annotations);
    built.sceneGraph->SyncFromModel(*built.model);
    built.sceneGraph->Refresh();
}

std::vector<Vector3> PartPictures::Corners(const CockpitModel::NodePart& part) const {
    return WorldCorners(*built.sceneGraph, [&](const CockpitModel::NodePart& other) { return &other == &part; });
}

PartPictures::Camera PartPictures::Frame(const std::vector<Vector3>& points, Rendering::Size size, float filled) const {
    CanvasControl control;
    control.Resize({static_cast<int>(size.width), static_cast<int>(size.height)});
    control.camera.SetPosition(CameraPlace(*opened.cockpit));
    if (const auto framing = FramePoints(points, control.camera, control.Aspect(), {.turn = true, .filled = filled})) {
        control.camera.SetPosition(framing->pose.position);
        control.camera.SetRotation(framing->pose.rotation);
        const float farPlane = std::max(kFarPlane, framing->farPlane);
        const Utils::Matrix4 view = control.camera.ViewMatrix();
        const float nearPlane = std::max(kNearPlane, NearestDepth(points, view) - kKeptBefore);
        return {view, Utils::PerspectiveFov(kFieldOfView, control.Aspect(), nearPlane, farPlane)};
    }
    return {control.camera.ViewMatrix(), control.projection};
}

void PartPictures::Draw(Rendering::Context& context, const Camera& camera) {
    preview.Render(context, camera.view, camera.projection);
}

} // namespace Annotator
