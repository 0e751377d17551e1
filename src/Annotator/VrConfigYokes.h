#pragma once

#include "Annotator/VrConfigLines.h"
#include "CockpitModel/AircraftCockpit.h"
#include "CockpitModel/NodePart.h"
#include "Utils/LinearAlgebra.h"

#include <vector>

namespace Annotator {

/// The places of a _vrconfig.txt: metres, x right, y up, z aft. They count from an origin in the aircraft, which is
/// itself a place that counts from the aircraft's reference point.
class VrConfigPlaces {
public:
    VrConfigPlaces(const CockpitModel::AircraftCockpit& cockpit, const Utils::Vector3& origin);

    /// Of a place that counts from the reference point.
    Utils::Vector3 OfAircraft(const Utils::Vector3& place) const { return place - origin; }
    /// The same place on the other side of the aircraft.
    Utils::Vector3 Mirrored(const Utils::Vector3& place) const;
    /// Of a point in the space of a model.
    Utils::Vector3 OfModel(const Utils::Vector3& point) const;

private:
    Utils::Vector3 modelOffset, origin;
};

/// The block of a yoke: parts with the same ATTR_manip_drag_xy, at least one, of which the first counts that turns by
/// both pitch and roll. It says how that one turns with every other dataref at 0; without directives if none does.
VrConfigLines YokeLines(const std::vector<const CockpitModel::NodePart*>& parts, const VrConfigPlaces& places);

/// Whether two of the yoke parts lie mirrored at both sides of the aircraft, so that it has a second seat.
bool HasSecondYoke(const std::vector<const CockpitModel::NodePart*>& yokes, const VrConfigPlaces& places);

} // namespace Annotator
