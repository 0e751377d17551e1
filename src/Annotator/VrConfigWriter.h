#pragma once

#include "Annotator/AircraftLoading.h"
#include "CockpitModel/Annotations/AnnotationStore.h"
#include "CockpitModel/XPlane/AcfPoints.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace Annotator {

/// The text of a "_vrconfig.txt", in which X-Plane finds how a hand in VR moves the controls of an aircraft.
struct VrConfigText {
    std::string text;
    std::size_t hotspots = 0, blocks = 0; ///< that were made; an author's own do not count
    std::size_t guesses = 0;              ///< blocks with a number that the objects do not tell
};

/// Makes the text for an aircraft in the full reading: a hotspot for the pilot's seat, another if there is a second
/// yoke, and a block for each knob and for each yoke that turns. The types that the annotations set count. Lines end
/// with LF. The same aircraft gives the same text.
VrConfigText MakeVrConfig(const LoadedAircraft& aircraft, const CockpitModel::AnnotationStore& annotations,
                          const CockpitModel::AcfPoints& points);

/// Adds to an author's text what it lacks, with its line ends and at its end; all its bytes stay. A text in which BEGIN
/// and END do not match, or with another header, throws std::runtime_error that names the line.
VrConfigText MergeVrConfig(const LoadedAircraft& aircraft, const CockpitModel::AnnotationStore& annotations,
                           const CockpitModel::AcfPoints& points, std::string_view text);

} // namespace Annotator
