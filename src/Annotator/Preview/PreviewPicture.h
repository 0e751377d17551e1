#pragma once

#include "Annotator/AircraftLoading.h"
#include "CockpitModel/Annotations/AnnotationStore.h"
#include "Rendering/Context.h"
#include "Utils/LinearAlgebra.h"

#include <optional>
#include <string>
#include <vector>

namespace Annotator {

/// A single image of the preview, without a window.
struct PictureRequest {
    struct Position {
        std::string dataref; ///< applies to all animations of this name
        float fraction = 0;  ///< of their time axis
    };

    Rendering::Size size{1280, 800};
    std::optional<Utils::Vector3> eye; ///< metres, in the camera's axes; empty for the pilot's eye
    /// Radians to the right and down. Empty for straight ahead, or towards the selected part if `fit` is set.
    std::optional<Utils::Vector2> look;
    bool fit = false; ///< move the camera so that the selected part, or else the cockpit, fills the image
    std::vector<Position> positions;
    std::optional<CockpitModel::PartAddress> selected;
    bool showTransparent = true;
    bool showSurroundings = true; ///< of the full reading
};

/// Draws an aircraft into the context's current target, which the caller has cleared, and moves the animations of its
/// model. The same request always gives the same image. An unknown dataref or part throws std::invalid_argument before
/// anything is drawn.
void DrawPreviewPicture(Rendering::Context& context, const PictureRequest& request, const OpenedAircraft& opened,
                        const BuiltAircraft& built, const CockpitModel::AnnotationStore& annotations);

} // namespace Annotator
