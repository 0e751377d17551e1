#pragma once

#include "Annotator/LintChecks.h"
#include "CockpitModel/SceneGraph.h"

#include <string>

namespace Annotator {

/// What an annotation file says in vain: its reader passes over words that it does not know and over parts that are
/// not there.
void LintAnnotations(const std::string& xml, const CockpitModel::SceneGraph& sceneGraph, LintFindings& findings);

} // namespace Annotator
