#pragma once

#include "CockpitModel/ModelData.h"
#include "CockpitModel/Node.h"

#include <memory>
#include <vector>

namespace CockpitModel {

class PanelSet;

/// Throws Utils::OutOfRange for a model whose parts would take too much memory, before any of it is taken.
void CheckPartSizes(const ModelData& model);
/// Gives the nodes, one per node of the model, their parts: one per draw call with triangles and one per panel
/// rectangle that it shows. Without a panel set there are none from panels. Throws Utils::OutOfRange and NoMaterial
/// with the reason.
void BuildParts(const ModelData& model, const PanelSet* panels, const std::vector<std::unique_ptr<Node>>& nodes);

} // namespace CockpitModel
