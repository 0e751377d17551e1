#pragma once

#include "Annotator/Lint/LintChecks.h"
#include "CockpitModel/Annotations/AnnotationStore.h"
#include "CockpitModel/SceneGraph.h"
#include "CockpitModel/XPlane/VrConfigParts.h"
#include "Sim/AircraftInfo.h"

#include <string>
#include <string_view>
#include <vector>

namespace Annotator {

/// The cockpit against which the blocks of a VR configuration are checked, in the full reading. Borrows the scene
/// graph.
struct VrConfigCockpit {
    /// Reads the aircraft's annotations, whose types count instead of the detected ones.
    VrConfigCockpit(const Sim::AircraftInfo& info, const CockpitModel::SceneGraph& sceneGraph, bool lacksObjects);

    CockpitModel::TouchInteractionType TypeOf(const CockpitModel::NodePart& part) const;
    /// The first of the parts that would work better in VR with a block; null if there is none.
    const CockpitModel::NodePart* Wanting(const std::vector<const CockpitModel::NodePart*>& some) const;

    const CockpitModel::SceneGraph& graph;
    CockpitModel::VrConfigParts parts;
    CockpitModel::AnnotationStore annotations;
    bool incomplete = false; ///< an attached object could not be read
};

/// Blocks that match no draw call, that contradict what is in the cockpit, and second ones for one manipulator.
void CheckBlocks(const CockpitModel::VrConfigFile& file, const VrConfigCockpit& cockpit, LintFindings& findings);

/// Notes on the manipulators that would work better with a block of their own. They are findings in the objects.
void CheckMissingBlocks(const CockpitModel::VrConfigFile& file, const VrConfigCockpit& cockpit,
                        std::vector<LintFinding>& findings);
/// Number of manipulators that would work better with a block.
std::size_t CountWanted(const VrConfigCockpit& cockpit);

/// The beginning of a text of a file, as UTF-8 for a message.
std::string Shortened(std::string_view text);

} // namespace Annotator
