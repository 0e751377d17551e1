#pragma once

#include "Annotator/Preview/Clickable.h"
#include "Annotator/Preview/PartColours.h"
#include "Annotator/Preview/Surroundings.h"
#include "CockpitModel/Annotations/AnnotationStore.h"
#include "CockpitModel/SceneGraph.h"
#include "Rendering/Stage.h"
#include "Utils/Timer.h"

#include <boost/signals2/signal.hpp>
#include <memory>
#include <optional>

namespace Annotator {

/// The mesh of the markers, relative to the installation; a preview requires it.
inline constexpr const char* kMarkerMeshFile = "QVRA/Models/Sphere.obj";

/// Blue component of the selected part, from 0 to 1, by seconds since its selection: a dip and a partial return.
float SelectionBlue(double seconds);

/// Draws the loaded cockpit part by part, tints each part by its state, marks the selected part and its motion, and
/// signals the part under the pointer on a click. User interface thread. A frame or a pointer event that a dialog's
/// event loop delivers during another one returns immediately.
class CockpitPreview : public Rendering::Stage, public Clickable {
public:
    void Render(Rendering::Context& context, const Utils::Matrix4& view, const Utils::Matrix4& projection) override;
    void OnMouseEvent(const CanvasMouseEvent& event) override;

    /// Model and store are not owned and must live until the next call. Three null pointers empty the preview. The
    /// surroundings of the last scene go, and reading them stops.
    void SetScene(std::shared_ptr<CockpitModel::SceneGraph> scene, CockpitModel::ModelData* source,
                  const CockpitModel::AnnotationStore* store);
    /// Restarts the pulse of the selection.
    void SetSelectedPart(CockpitModel::NodePart* part);
    /// What to draw around the controls of this scene. While it is on, click boxes are half transparent.
    void SetSurroundings(CockpitModel::SurroundingObjects found);
    void ShowSurroundings(bool show) { showSurroundings = show; }
    /// Waits until the surroundings are on the device, for a single picture.
    void CompleteSurroundings(Rendering::Context& context);
    void ShowTransparent(bool show) { showTransparent = show; }
    void ShowColours(PartColours newColours) { colours = newColours; }
    /// Stops pulse and spin at their state after this number of seconds, so that an image is the same each time.
    void StopClock(double seconds) { stoppedAt = seconds; }
    const CockpitModel::NodePart* HoveredPart() const { return hoveredPart; }
    /// Releases the device's objects; its context must be current.
    void ReleaseGpuResources();

    boost::signals2::signal<void(CockpitModel::NodePart*)> partSignal; ///< emitted for a click on a part

private:
    struct Frame;

    bool IsShown(const CockpitModel::NodePart& part) const { return showTransparent || !part.IsTransparent(); }
    bool ShowsSurroundings() const { return surroundings && showSurroundings; }
    /// A control that the simulator does not draw, if it is to be told from the surroundings.
    bool IsClickBox(const CockpitModel::NodePart& part) const { return ShowsSurroundings() && part.block.NotDrawn; }
    const Rendering::GPUBitmap* PictureOf(const CockpitModel::NodePart& part) const;
    double Seconds(Utils::Timer& timer) const { return stoppedAt ? *stoppedAt : timer.Elapsed(); }
    void LoadOwnResources(Rendering::Context& context);
    void DrawNodes(Frame& frame);
    void DrawNode(Frame& frame, const Utils::Matrix4& world, const CockpitModel::Node& node);
    void DrawMarkers(Frame& frame, const Utils::Matrix4& world, const CockpitModel::NodePart& part);
    void DrawSphere(const Frame& frame, const Utils::Matrix4& rotation, const Utils::Vector3& position) const;
    void PaintPart(Rendering::GeometryDrawParams& params, const CockpitModel::NodePart& part);
    void TintPart(Rendering::GeometryDrawParams& params, const CockpitModel::NodePart& part);
    void TintByAnnotation(Rendering::GeometryDrawParams& params, const CockpitModel::NodePart& part) const;
    void FindHoveredPart(const CanvasMouseEvent& event);

    bool showTransparent = true;
    bool showSurroundings = true;
    PartColours colours = PartColours::Standard;
    std::unique_ptr<Rendering::GPUBitmap> checkerBitmap;  ///< for parts without a texture
    std::unique_ptr<Rendering::Geometry> sphereGeometry;  ///< marker shape
    std::shared_ptr<CockpitModel::SceneGraph> sceneGraph; ///< empty until the first load
    std::unique_ptr<Surroundings> surroundings;           ///< of the scene; null without any
    CockpitModel::NodePart* hoveredPart = nullptr;
    CockpitModel::NodePart* selectedPart = nullptr;
    CockpitModel::ModelData* model = nullptr; ///< source of the animation positions
    const CockpitModel::AnnotationStore* annotationStore = nullptr;
    Utils::Timer selectionTimer;     ///< since the last SetSelectedPart
    Utils::Timer spinTimer;          ///< since construction
    std::optional<double> stoppedAt; ///< replaces both timers; seconds
    bool busy = false;               ///< during a frame or a pointer event
};

} // namespace Annotator
