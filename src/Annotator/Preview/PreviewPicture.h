#pragma once

#include "Annotator/AircraftLoading.h"
#include "CockpitModel/Annotations/AnnotationStore.h"
#include "Rendering/Context.h"
#include "Utils/LinearAlgebra.h"

#include <optional>
#include <string>
#include <vector>

namespace Annotator {

/// The preview as one picture, without a window.
struct PictureRequest {
    struct Position {
        std::string dataref; ///< moves all animations of this name
        float fraction = 0;  ///< of their time axis
    };

    Rendering::Size size{1280, 800};
    std::optional<Utils::Vector3> eye; ///< metres, in the camera's axes; the pilot's eye where empty
    /// Radians to the right and down. Where empty, straight ahead, or towards a selected part that is to be fitted.
    std::optional<Utils::Vector2> look;
    bool fit = false; ///< from where the selected part, or the whole cockpit without one, fills the picture
    std::vector<Position> positions;
    std::optional<CockpitModel::PartAddress> selected;
    bool showTransparent = true;
};

/// Draws an aircraft into the context's present target, which the caller has cleared, and moves the animations of its
/// model. The same request gives the same picture each time. A dataref or a part that the aircraft does not have throws
/// std::invalid_argument, which says so, ahead of any draw.
void DrawPreviewPicture(Rendering::Context& context, const PictureRequest& request, const OpenedAircraft& opened,
                        const BuiltAircraft& built, const CockpitModel::AnnotationStore& annotations);

} // namespace Annotator
