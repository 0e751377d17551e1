#pragma once

#include "CockpitModel/AircraftCockpit.h"
#include "CockpitModel/Panels/PanelSet.h"
#include "CockpitModel/SceneGraph.h"
#include "Sim/AircraftInfo.h"

#include <ostream>

namespace Batch {

/// One JSON object that describes a loaded cockpit, with one line per node and part. `sceneGraph` must be newly built,
/// so that the world matrices show every animation at 1. `panels` may be null and are then left out.
void WriteCockpitJson(std::ostream& stream, const Sim::AircraftInfo& info, const CockpitModel::AircraftCockpit& cockpit,
                      const CockpitModel::SceneGraph& sceneGraph, const CockpitModel::PanelSet* panels);

} // namespace Batch
