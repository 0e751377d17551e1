#pragma once

#include "Annotator/Lint/LintChecks.h"
#include "CockpitModel/SceneGraph.h"

#include <string>

namespace Annotator {

/// What the reader of an annotation file ignores in silence: values that it does not know and parts that are not
/// there.
void LintAnnotations(const std::string& xml, const CockpitModel::SceneGraph& sceneGraph, LintFindings& findings);

} // namespace Annotator
