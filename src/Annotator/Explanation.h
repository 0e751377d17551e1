#pragma once

#include "CockpitModel/NodePart.h"
#include "CockpitModel/SceneGraph.h"

#include <string>

namespace Annotator {

/// Why a part of a detected scene has its type, as text for the user: the rule with its values and limits, the lines of
/// its object, the animations from the part up to the root, the best candidates for the primary yoke if the part is a
/// yoke, and what would change the type. In the full reading also the manipulator's cursor and tooltip.
std::string ExplanationText(const CockpitModel::SceneGraph& sceneGraph, const CockpitModel::NodePart& part);

/// In two lines at most, what the plain reading says of a part: its type, rule and manipulator. Null if the plain
/// reading does not have it.
std::string PlainReadingText(const CockpitModel::NodePart* part);

} // namespace Annotator
