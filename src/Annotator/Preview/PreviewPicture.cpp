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

CockpitModel::NodePart* RequirePart(const CockpitModel::SceneGraph& sceneGraph, CockpitModel::PartAddress address) {
    if (CockpitModel::NodePart* const part = sceneGraph.FindPart(address))
        return part;
    if (const CockpitModel::Node* const node = sceneGraph.FindNode(address.node))
        throw std::invalid_argument("node " + std::to_string(address.node) + " has no part " +
                                    std::to_string(address.part) + "; it has " + std::to_string(node->parts.size()) +
                                    " parts, numbered from 0");
    throw std::invalid_argument("the cockpit has no node " + std::to_string(address.node) + "; it has " +
                                std::to_string(sceneGraph.Nodes().size()) + " nodes, numbered from 0");
}

/// Moves the camera so that the part, or everything shown if there is none, fills the image.
void Fit(CanvasControl& control, const PictureRequest& request, const BuiltAircraft& built,
         const CockpitModel::NodePart* selected) {
    built.sceneGraph->SyncFromModel(*built.model);
    built.sceneGraph->Refresh();
    const auto wanted = [&](const CockpitModel::NodePart& part) {
        return selected ? &part == selected : request.showTransparent || !part.IsTransparent();
    };
    const FramingRule rule{.turn = selected && !request.look};
    if (const auto framing = FrameParts(*built.sceneGraph, wanted, control.camera, control.Aspect(), rule)) {
        control.camera.SetPosition(framing->pose.position);
        control.camera.SetRotation(framing->pose.rotation);
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
    if (request.showSurroundings && opened.cockpit->reading == CockpitModel::Reading::Full)
        preview.SetSurroundings(opened.cockpit->FindSurroundings());
    CockpitModel::NodePart* const selected =
        request.selected ? RequirePart(*built.sceneGraph, *request.selected) : nullptr;
    preview.SetSelectedPart(selected);
    CanvasControl control = PlaceCamera(request, *opened.cockpit);
    if (request.fit)
        Fit(control, request, built, selected);
    preview.CompleteSurroundings(context);
    preview.Render(context, control.camera.ViewMatrix(), control.projection);
    preview.ReleaseGpuResources();
}

} // namespace Annotator
