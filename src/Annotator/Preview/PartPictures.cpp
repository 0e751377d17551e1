#include "Annotator/Preview/PartPictures.h"

#include "Annotator/Preview/CanvasControl.h"
#include "Annotator/Preview/Framing.h"

#include <algorithm>

namespace Annotator {

namespace {

using Utils::Vector3;

/// After the end of the selection's pulse.
constexpr double kPictureTime = 1.0; // seconds

/// The points moved away from the middle of their box.
std::vector<Vector3> Spread(std::vector<Vector3> points, float factor) {
    if (points.empty())
        return points;
    Vector3 least = points.front(), greatest = least;
    for (const Vector3& point : points) {
        least = least.cwiseMin(point);
        greatest = greatest.cwiseMax(point);
    }
    const Vector3 middle = (least + greatest) / 2.0f;
    for (Vector3& point : points)
        point = middle + (point - middle) * factor;
    return points;
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
    control.camera.SetRotation(RotationTowards(points, control.camera));
    if (const auto framing = FramePoints(Spread(points, 0.95f / filled), control.camera, control.Aspect())) {
        control.camera.SetPosition(framing->position);
        control.SetFarPlane(std::max(kFarPlane, framing->farPlane));
    }
    return {control.camera.ViewMatrix(), control.projection};
}

void PartPictures::Draw(Rendering::Context& context, const Camera& camera) {
    preview.Render(context, camera.view, camera.projection);
}

} // namespace Annotator
