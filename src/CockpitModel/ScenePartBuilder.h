#pragma once

#include "CockpitModel/ModelData.h"
#include "CockpitModel/Node.h"

#include <cstdint>
#include <memory>
#include <vector>

namespace CockpitModel {

class PanelSet;

/// Draw calls may repeat the same vertices, so that a small file could exhaust memory with copies. Real cockpits draw
/// up to a few million vertices.
inline constexpr std::uint64_t kMostDrawnVertices = 1 << 24;

/// Throws Utils::OutOfRange for a model whose parts would take too much memory, before any of it is taken.
void CheckPartSizes(const ModelData& model);
/// Gives the nodes, one per node of the model, their parts: one per draw call with triangles and one per panel
/// rectangle that it shows. Without a panel set there are none from panels. Throws Utils::OutOfRange and NoMaterial
/// with the reason.
void BuildParts(const ModelData& model, const PanelSet* panels, const std::vector<std::unique_ptr<Node>>& nodes);

} // namespace CockpitModel
