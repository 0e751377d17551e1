#pragma once

#include "Annotator/AircraftLoading.h"
#include "Annotator/Preview/CockpitPreview.h"
#include "Annotator/Preview/PartColours.h"
#include "Utils/NonAssignable.h"

#include <vector>

namespace Annotator {

/// Draws pictures of parts of one aircraft, one after the other on one device, with the animations where the load left
/// them. The same aircraft and part always give the same picture. User interface thread.
class PartPictures : public Utils::NonAssignable {
public:
    struct Camera {
        Utils::Matrix4 view = Utils::Matrix4::Identity(), projection = Utils::Matrix4::Identity();

        Utils::Matrix4 ViewProjection() const { return view * projection; }
    };

    /// Aircraft and annotations are not owned.
    PartPictures(const OpenedAircraft& opened, const BuiltAircraft& built,
                 const CockpitModel::AnnotationStore& annotations);
    ~PartPictures() { ReleaseGpuResources(); }

    /// The part's corners in world space, as far as they are finite.
    std::vector<Utils::Vector3> Corners(const CockpitModel::NodePart& part) const;
    /// A camera on the side of the pilot's eye, from which the points take this share of the image's width or height,
    /// but not nearer than 10 cm. What is far before the points is cut off. It is at the eye if there are no points.
    Camera Frame(const std::vector<Utils::Vector3>& points, Rendering::Size size, float filled) const;

    /// Marks this part as selected in the next pictures; null for none.
    void Select(CockpitModel::NodePart* part) { preview.SetSelectedPart(part); }
    void ShowColours(PartColours colours) { preview.ShowColours(colours); }
    /// Draws into the context's current target, which the caller has cleared.
    void Draw(Rendering::Context& context, const Camera& camera);
    /// Releases the device's objects; its context must be current. Call it before the device ends, unless this ends
    /// first.
    void ReleaseGpuResources() { preview.ReleaseGpuResources(); }

private:
    const OpenedAircraft& opened;
    const BuiltAircraft& built;
    CockpitPreview preview;
};

} // namespace Annotator
