#pragma once

#include "CockpitModel/AircraftCockpit.h"
#include "CockpitModel/ModelData.h"
#include "CockpitModel/Panels/PanelSet.h"
#include "CockpitModel/SceneGraph.h"
#include "Sim/AircraftInfo.h"

#include <memory>

namespace Annotator {

/// Loading an aircraft takes two operations, so that the session, the export and the checks can add their own checks
/// and error handling between them.

/// An aircraft whose files are located and whose panel configuration is read. It has no model yet.
struct OpenedAircraft {
    std::unique_ptr<CockpitModel::AircraftCockpit> cockpit;
    std::unique_ptr<CockpitModel::PanelSet> panels; ///< must not move while a scene graph points to it
};

/// A cockpit with detected part types. The scene graph points into the panel set of the opened aircraft.
struct BuiltAircraft {
    std::unique_ptr<CockpitModel::ModelData> model;
    std::shared_ptr<CockpitModel::SceneGraph> sceneGraph;
};

/// Differences from how the desktop tool loads.
struct LoadOptions {
    CockpitModel::Reading reading = CockpitModel::Reading::Plain;
    /// Of the plain reading; the full one always does it.
    bool untextured = false; ///< give parts without a material a plain one, without which the cockpit cannot be built
};

/// If the panel configuration cannot be read, the set is empty. A pilot's eye that is not a number throws
/// boost::bad_lexical_cast.
OpenedAircraft OpenAircraft(const Sim::AircraftInfo& info, CockpitModel::GaugeRepository& repository,
                            CockpitModel::Reading reading = CockpitModel::Reading::Plain);

/// Loads the model, builds its scene graph and runs the detection, in the reading in which the aircraft was opened. An
/// inconsistent model throws Utils::OutOfRange with the reason; in the full reading, a cockpit that is not valid throws
/// std::runtime_error.
BuiltAircraft BuildAircraft(const OpenedAircraft& opened, const LoadOptions& options = {});

/// The results of both operations. The scene graph, which points into the panel set, is destroyed first.
struct LoadedAircraft {
    OpenedAircraft opened;
    BuiltAircraft built;
};

/// Both operations, for callers that do nothing between them.
LoadedAircraft LoadAircraft(const Sim::AircraftInfo& info, const LoadOptions& options = {});

} // namespace Annotator
