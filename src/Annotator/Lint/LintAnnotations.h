#pragma once

#include "Annotator/Lint/LintChecks.h"
#include "CockpitModel/SceneGraph.h"

#include <string>

namespace Annotator {

/// Finds what the reader of annotation files ignores silently: unknown values and parts that do not exist.
void LintAnnotations(const std::string& xml, const CockpitModel::SceneGraph& sceneGraph, LintFindings& findings);

} // namespace Annotator
