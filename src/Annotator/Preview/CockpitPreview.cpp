#include "Annotator/Preview/CockpitPreview.h"

#include "Annotator/Preview/SingleView.h"
#include "CockpitModel/PartTransformCalculator.h"
#include "CockpitModel/Picking/PartTree.h"
#include "Rendering/GeometryLoader.h"

#include <algorithm>
#include <limits>

namespace Annotator {

namespace {

using CockpitModel::Node;
using CockpitModel::NodePart;
using CockpitModel::TouchInteractionType;
using Rendering::GeometryDrawParams;
using Utils::Matrix4;
using Utils::Vector3;

constexpr const char* kCheckerFile = "QVRA/Images/checker.png";
constexpr float kMarkerScale = 0.1f;
constexpr float kPathStep = 0.05f;

// Of the choices of colours beside the standard one.
const Vector3 kHoverColour(0.9f, 0.9f, 1.0f);

/// Sets a flag for the duration of a scope.
class FlagScope : public Utils::NonAssignable {
public:
    explicit FlagScope(bool& scopedFlag) : flag(scopedFlag) { flag = true; }
    ~FlagScope() { flag = false; }

private:
    bool& flag;
};

void MakeTransparent(GeometryDrawParams& params) {
    params.opacity = 0.5f;
    params.blend = true;
}

/// The surroundings are seen through it, and so is a control in it or behind it.
void MakeClickBox(GeometryDrawParams& params) {
    MakeTransparent(params);
    params.depthWrite = false;
}

} // namespace

/// State shared by the draws of one frame. They share one record of parameters because its list and text would
/// otherwise be allocated for each part.
struct CockpitPreview::Frame {
    Rendering::Context& context;
    const Matrix4& view;
    const Matrix4& projection;
    GeometryDrawParams params = SingleViewParams();
    const GeometryDrawParams plain = params;
    bool clickBoxes = false; ///< which parts to draw: these or all others
};

float SelectionBlue(double seconds) {
    const double pulse = 0.5 * std::cos(std::min(8.0 * seconds, 5.0)) + 0.5;
    return static_cast<float>(0.7 + 0.3 * pulse);
}

void CockpitPreview::SetScene(std::shared_ptr<CockpitModel::SceneGraph> scene, CockpitModel::ModelData* source,
                              const CockpitModel::AnnotationStore* store) {
    sceneGraph = std::move(scene);
    model = source;
    annotationStore = store;
    surroundings.reset();
}

void CockpitPreview::SetSurroundings(CockpitModel::SurroundingObjects found) {
    surroundings = std::make_unique<Surroundings>(std::move(found));
}

void CockpitPreview::CompleteSurroundings(Rendering::Context& context) {
    if (surroundings)
        surroundings->Complete(context);
}

void CockpitPreview::SetSelectedPart(NodePart* part) {
    selectedPart = part;
    selectionTimer.ElapsedAndRestart();
}

void CockpitPreview::ReleaseGpuResources() {
    checkerBitmap.reset();
    sphereGeometry.reset();
    if (surroundings)
        surroundings->ReleaseGpuResources();
    if (sceneGraph)
        sceneGraph->ReleaseGpuResources();
}

void CockpitPreview::Render(Rendering::Context& context, const Matrix4& view, const Matrix4& projection) {
    if (!sceneGraph || busy)
        return;
    const FlagScope scope(busy);
    LoadOwnResources(context);
    sceneGraph->PrepareGpuResources(context);
    sceneGraph->SyncFromModel(*model);
    sceneGraph->Refresh();
    if (ShowsSurroundings())
        surroundings->Draw(context, view, projection);
    Frame frame{context, view, projection};
    DrawNodes(frame);
    frame.clickBoxes = true;
    if (ShowsSurroundings())
        DrawNodes(frame);
}

void CockpitPreview::DrawNodes(Frame& frame) {
    sceneGraph->VisitNodes(frame.view, frame.projection,
                           [&](const Matrix4& world, const Matrix4&, const Matrix4&, const Matrix4&, Node& node) {
                               DrawNode(frame, world, node);
                           });
}

void CockpitPreview::LoadOwnResources(Rendering::Context& context) {
    if (!context.IsBitmapValid(checkerBitmap.get()))
        checkerBitmap = context.LoadBitmap(Rendering::FindDataFile(kCheckerFile));
    if (!context.IsGeometryValid(sphereGeometry.get()))
        sphereGeometry = Rendering::LoadGeometryFile(context, kMarkerMeshFile, true);
}

void CockpitPreview::DrawNode(Frame& frame, const Matrix4& world, const Node& node) {
    for (const auto& part : node.parts) {
        if (!IsShown(*part) || IsClickBox(*part) != frame.clickBoxes)
            continue;
        frame.params = frame.plain;
        if (colours == PartColours::Standard)
            TintPart(frame.params, *part);
        else
            PaintPart(frame.params, *part);
        if (frame.clickBoxes)
            MakeClickBox(frame.params);
        frame.context.DrawGeometry(world, frame.view, frame.projection, *part->geometry,
                                   frame.clickBoxes ? nullptr : PictureOf(*part), nullptr, frame.params);
        if (part.get() == selectedPart)
            DrawMarkers(frame, world, *part);
    }
}

const Rendering::GPUBitmap* CockpitPreview::PictureOf(const NodePart& part) const {
    const Rendering::GPUBitmap* const texture = part.textureIndex ? sceneGraph->Texture(*part.textureIndex) : nullptr;
    return texture ? texture : checkerBitmap.get();
}

void CockpitPreview::PaintPart(GeometryDrawParams& params, const NodePart& part) {
    if (&part == selectedPart) {
        Paint(params, {0.0f, 0.0f, SelectionBlue(Seconds(selectionTimer))});
    } else if (&part == hoveredPart) {
        Paint(params, kHoverColour);
    } else {
        Paint(params, ColourOf(colours, part, annotationStore->Evaluate(part)));
        if (part.IsTransparent())
            MakeTransparent(params);
    }
}

void CockpitPreview::TintPart(GeometryDrawParams& params, const NodePart& part) {
    if (part.Rect()) {
        params.firstColour = {0.4f, 0.4f, 0.7f};
        params.secondColour = {0.1f, 0.1f, 0.3f};
    }
    if (&part == selectedPart) {
        params.firstColour = {0.0f, 0.0f, SelectionBlue(Seconds(selectionTimer))};
        params.secondColour = {0.0f, 0.0f, 0.1f};
    } else if (&part == hoveredPart) {
        params.firstColour = {0.7f, 0.7f, 1.0f};
        params.secondColour = {0.3f, 0.3f, 0.0f};
    } else if (part.IsTransparent()) {
        MakeTransparent(params);
    } else {
        TintByAnnotation(params, part);
    }
}

void CockpitPreview::TintByAnnotation(GeometryDrawParams& params, const NodePart& part) const {
    if (const auto annotation = annotationStore->Get(part)) {
        const auto& expected = annotation->InteractionTypeTest;
        if (expected && *expected != part.InteractionType)
            params.firstColour = {1.0f, 0.0f, 0.0f};
        else if (expected)
            params.firstColour = {0.3f, 0.7f, 0.3f};
    } else if (part.InteractionType == TouchInteractionType::YokePrimary) {
        params.firstColour = {1.0f, 1.0f, 0.5f};
    }
}

void CockpitPreview::DrawMarkers(Frame& frame, const Matrix4& world, const NodePart& part) {
    GeometryDrawParams& params = frame.params;
    params = frame.plain; // the part's own colour must not show
    params.blend = true;
    params.firstColour = params.secondColour = {0.1f, 0.5f, 0.1f};
    // A zero axis gives a quaternion without a vector part, whose matrix is the identity.
    const auto spin = Utils::RotationAboutAxis(part.RotationAxis, static_cast<float>(Seconds(spinTimer)));
    DrawSphere(frame, Utils::Rotation(spin), Utils::TransformPoint(part.AxisTip, world));

    params.firstColour = params.secondColour = {0.5f, 0.1f, 0.1f};
    DrawSphere(frame, Matrix4::Identity(), Utils::TransformPoint(part.FarthestVertex, world));

    const auto path = CockpitModel::FindPartTransform(part);
    if (!path)
        return;
    params.opacity = 0.5f;
    // The sum of the 32-bit steps passes 1 after 20 spheres.
    for (float t = 0.0f; t <= 1.0f; t += kPathStep)
        DrawSphere(frame, Matrix4::Identity(), Utils::TransformPoint(part.FarthestVertex, path->TransformAt(t)));
}

void CockpitPreview::DrawSphere(const Frame& frame, const Matrix4& rotation, const Vector3& position) const {
    const Matrix4 world = Utils::Scaling(kMarkerScale) * rotation * Utils::Translation(position);
    frame.context.DrawGeometry(world, frame.view, frame.projection, *sphereGeometry, checkerBitmap.get(), nullptr,
                               frame.params);
}

void CockpitPreview::OnMouseEvent(const CanvasMouseEvent& event) {
    if (!sceneGraph || busy)
        return;
    FindHoveredPart(event);
    if (hoveredPart && event.type == kCanvasClick)
        partSignal(hoveredPart);
}

void CockpitPreview::FindHoveredPart(const CanvasMouseEvent& event) {
    const FlagScope scope(busy);
    hoveredPart = nullptr;
    float best = std::numeric_limits<float>::max();
    const auto pick = [&](const Matrix4& world, const Matrix4&, const Matrix4& view, const Matrix4&, Node& node) {
        if (node.parts.empty())
            return;
        const Matrix4 toNode = (world * view).inverse();
        const CockpitModel::PartRay ray = CockpitModel::TransformRay(event.ray, toNode);
        for (const auto& part : node.parts) {
            if (!IsShown(*part))
                continue;
            const auto hit = part->Tree().Intersect(ray);
            if (hit && hit->distance < best) {
                hoveredPart = part.get();
                best = hit->distance;
            }
        }
    };
    sceneGraph->VisitNodes(event.view, event.projection, pick);
}

} // namespace Annotator
