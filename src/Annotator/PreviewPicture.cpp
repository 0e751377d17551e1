#include "Annotator/PreviewPicture.h"

#include "Annotator/CanvasControl.h"
#include "Annotator/CockpitPreview.h"

#include <stdexcept>

namespace Annotator {

namespace {

/// Late enough for the pulse of the selection to rest.
constexpr double kPictureTime = 1.0; // seconds

void ApplyPosition(CockpitModel::ModelData& model, const PictureRequest::Position& position) {
    bool found = false;
    for (CockpitModel::ModelAnimation& animation : model.animations) {
        if (animation.name != position.dataref)
            continue;
        animation.position = position.fraction * animation.length / 100.0f;
        found = true;
    }
    if (!found)
        throw std::invalid_argument("no animation of the cockpit follows " + position.dataref);
}

CockpitModel::NodePart& FindPart(const CockpitModel::SceneGraph& sceneGraph, const PictureRequest::PartPlace& place) {
    const auto& nodes = sceneGraph.Nodes();
    if (place.NodeId < 0 || std::cmp_greater_equal(place.NodeId, nodes.size()))
        throw std::invalid_argument("the cockpit has no node " + std::to_string(place.NodeId) + ", but " +
                                    std::to_string(nodes.size()) + " nodes from 0 on");
    const auto& parts = nodes[static_cast<std::size_t>(place.NodeId)]->parts;
    if (place.PartId < 0 || std::cmp_greater_equal(place.PartId, parts.size()))
        throw std::invalid_argument("node " + std::to_string(place.NodeId) + " has no part " +
                                    std::to_string(place.PartId) + ", but " + std::to_string(parts.size()) +
                                    " parts from 0 on");
    return *parts[static_cast<std::size_t>(place.PartId)];
}

CanvasControl PlaceCamera(const PictureRequest& request, const CockpitModel::AircraftCockpit& cockpit) {
    CanvasControl control;
    control.Resize({static_cast<int>(request.size.width), static_cast<int>(request.size.height)});
    control.camera.SetPosition(request.eye.value_or(CameraPlace(cockpit)));
    control.camera.SetRotation({request.pitch, 0.0f, request.yaw});
    return control;
}

} // namespace

void DrawPreviewPicture(Rendering::Context& context, const PictureRequest& request, const OpenedAircraft& opened,
                        const BuiltAircraft& built, const CockpitModel::AnnotationStore& annotations) {
    for (const PictureRequest::Position& position : request.positions)
        ApplyPosition(*built.model, position);
    CockpitPreview preview;
    preview.StopClock(kPictureTime);
    preview.ShowTransparent(request.showTransparent);
    preview.SetScene(built.sceneGraph, built.model.get(), &annotations);
    if (request.selected)
        preview.SetSelectedPart(&FindPart(*built.sceneGraph, *request.selected));
    const CanvasControl control = PlaceCamera(request, *opened.cockpit);
    preview.Render(context, control.camera.ViewMatrix(), control.projection);
    preview.ReleaseGpuResources();
}

} // namespace Annotator
