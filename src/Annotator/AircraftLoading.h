#pragma once

#include "CockpitModel/AircraftCockpit.h"
#include "CockpitModel/ModelData.h"
#include "CockpitModel/Panels/PanelSet.h"
#include "CockpitModel/SceneGraph.h"
#include "Sim/AircraftInfo.h"

#include <memory>

namespace Annotator {

/// Loading an aircraft takes two operations; the window, the export and the checks put their own questions and guards
/// between and around them.

/// An aircraft with its files found and its panel configuration read; no model yet.
struct OpenedAircraft {
    std::unique_ptr<CockpitModel::AircraftCockpit> cockpit;
    std::unique_ptr<CockpitModel::PanelSet> panels; ///< keeps its address as long as a scene graph points to it
};

/// A cockpit with its parts' types detected. The scene graph points into the panel set of the opened aircraft.
struct BuiltAircraft {
    std::unique_ptr<CockpitModel::ModelData> model;
    std::shared_ptr<CockpitModel::SceneGraph> sceneGraph;
};

/// How loading differs from what the desktop tool does.
struct LoadOptions {
    bool untextured = false; ///< gives parts without a material a plain one, where their cockpit could not be built
};

/// A panel configuration that cannot be read leaves the set empty. A pilot's eye that is no number throws
/// boost::bad_lexical_cast.
OpenedAircraft OpenAircraft(const Sim::AircraftInfo& info, CockpitModel::GaugeRepository& repository);

/// Loads the model, makes its scene graph and runs the detection. A model that does not hold together throws
/// Utils::OutOfRange with its reason.
BuiltAircraft BuildAircraft(const OpenedAircraft& opened, const LoadOptions& options = {});

/// The results of both operations. The scene graph, which points into the panel set, is destroyed first.
struct LoadedAircraft {
    OpenedAircraft opened;
    BuiltAircraft built;
};

/// Both operations, for an aircraft of which nothing is asked in between.
LoadedAircraft LoadAircraft(const Sim::AircraftInfo& info, const LoadOptions& options = {});

} // namespace Annotator
