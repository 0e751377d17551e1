#pragma once

#include "CockpitModel/NodePart.h"
#include "CockpitModel/SceneGraph.h"

#include <string>

namespace Annotator {

/// Why a part of a detected scene has its type, in lines for a person: the rule with its figures against their limits,
/// the lines of the cockpit object, the animations from the part up to the root, the best candidates for the primary
/// yoke where it is one, and what would change the type.
std::string ExplanationText(const CockpitModel::SceneGraph& sceneGraph, const CockpitModel::NodePart& part);

} // namespace Annotator
