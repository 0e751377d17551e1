#pragma once

#include "CockpitModel/AircraftCockpit.h"
#include "CockpitModel/Panels/PanelSet.h"
#include "CockpitModel/SceneGraph.h"
#include "Sim/AircraftInfo.h"

#include <ostream>

namespace Batch {

/// One JSON object with all that the program made of a cockpit: a line per node and part. `sceneGraph` has just been
/// made, so that the world matrices show every animation at 1. `panels` are shown where they are not null.
void WriteCockpitJson(std::ostream& stream, const Sim::AircraftInfo& info, const CockpitModel::AircraftCockpit& cockpit,
                      const CockpitModel::SceneGraph& sceneGraph, const CockpitModel::PanelSet* panels);

} // namespace Batch
