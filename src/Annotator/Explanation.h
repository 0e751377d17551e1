#pragma once

#include "CockpitModel/NodePart.h"
#include "CockpitModel/SceneGraph.h"

#include <string>

namespace Annotator {

/// Why a part of a detected scene has its type, as text for the user: the rule with its values and limits, the lines of
/// the cockpit object, the animations from the part up to the root, the best candidates for the primary yoke if the
/// part is a yoke, and what would change the type.
std::string ExplanationText(const CockpitModel::SceneGraph& sceneGraph, const CockpitModel::NodePart& part);

} // namespace Annotator
