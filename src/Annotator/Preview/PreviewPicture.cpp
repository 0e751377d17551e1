#include "Annotator/Preview/PreviewPicture.h"

#include "Annotator/AnimationPosition.h"
#include "Annotator/Preview/CanvasControl.h"
#include "Annotator/Preview/CockpitPreview.h"
#include "Annotator/Preview/Framing.h"

#include <algorithm>
#include <stdexcept>

namespace Annotator {

namespace {

/// After the end of the selection's pulse.
constexpr double kPictureTime = 1.0; // seconds

CockpitModel::NodePart* FindPart(const CockpitModel::SceneGraph& sceneGraph, const PictureRequest::PartPlace& place) {
    const auto& nodes = sceneGraph.Nodes();
    if (place.NodeId < 0 || std::cmp_greater_equal(place.NodeId, nodes.size()))
        throw std::invalid_argument("the cockpit has no node " + std::to_string(place.NodeId) + "; it has " +
                                    std::to_string(nodes.size()) + " nodes, numbered from 0");
    const auto& parts = nodes[static_cast<std::size_t>(place.NodeId)]->parts;
    if (place.PartId < 0 || std::cmp_greater_equal(place.PartId, parts.size()))
        throw std::invalid_argument("node " + std::to_string(place.NodeId) + " has no part " +
                                    std::to_string(place.PartId) + "; it has " + std::to_string(parts.size()) +
                                    " parts, numbered from 0");
    return parts[static_cast<std::size_t>(place.PartId)].get();
}

/// Moves the camera so that the part, or everything shown if there is none, fills the image.
void Fit(CanvasControl& control, const PictureRequest& request, const BuiltAircraft& built,
         const CockpitModel::NodePart* selected) {
    built.sceneGraph->SyncFromModel(*built.model);
    built.sceneGraph->Refresh();
    const auto corners = WorldCorners(*built.sceneGraph, [&](const CockpitModel::NodePart& part) {
        return selected ? &part == selected : request.showTransparent || !part.IsTransparent();
    });
    if (selected && !request.look)
        control.camera.SetRotation(RotationTowards(corners, control.camera));
    if (const auto framing = FramePoints(corners, control.camera, control.Aspect())) {
        control.camera.SetPosition(framing->position);
        control.SetFarPlane(std::max(kFarPlane, framing->farPlane));
    }
}

CanvasControl PlaceCamera(const PictureRequest& request, const CockpitModel::AircraftCockpit& cockpit) {
    CanvasControl control;
    control.Resize({static_cast<int>(request.size.width), static_cast<int>(request.size.height)});
    control.camera.SetPosition(request.eye.value_or(CameraPlace(cockpit)));
    const Utils::Vector2 look = request.look.value_or(Utils::Vector2::Zero());
    control.camera.SetRotation({look.y(), 0.0f, look.x()});
    return control;
}

} // namespace

void DrawPreviewPicture(Rendering::Context& context, const PictureRequest& request, const OpenedAircraft& opened,
                        const BuiltAircraft& built, const CockpitModel::AnnotationStore& annotations) {
    for (const PictureRequest::Position& position : request.positions)
        if (!MoveAnimations(*built.model, position.dataref, position.fraction))
            throw std::invalid_argument("no animation of the cockpit uses the dataref " + position.dataref);
    CockpitPreview preview;
    preview.StopClock(kPictureTime);
    preview.ShowTransparent(request.showTransparent);
    preview.SetScene(built.sceneGraph, built.model.get(), &annotations);
    CockpitModel::NodePart* const selected =
        request.selected ? FindPart(*built.sceneGraph, *request.selected) : nullptr;
    preview.SetSelectedPart(selected);
    CanvasControl control = PlaceCamera(request, *opened.cockpit);
    if (request.fit)
        Fit(control, request, built, selected);
    preview.Render(context, control.camera.ViewMatrix(), control.projection);
    preview.ReleaseGpuResources();
}

} // namespace Annotator
