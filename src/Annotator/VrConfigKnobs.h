#pragma once

#include "Annotator/VrConfigLines.h"
#include "CockpitModel/NodePart.h"

#include <vector>

namespace Annotator {

/// The block of a knob: parts that are twisted and have the same keyword and names, at least one. Without directives if
/// the manipulator cannot be turned: one of several radio buttons, a drag without a range.
VrConfigLines KnobLines(const std::vector<const CockpitModel::NodePart*>& parts);

} // namespace Annotator
