#include "CockpitModel/NodePart.h"

#include "CockpitModel/Picking/PartTree.h"

namespace CockpitModel {

namespace {

constexpr float kOpaqueAlpha = 0.9f;

} // namespace

NodePart::NodePart() = default;

NodePart::~NodePart() = default;

bool NodePart::IsTransparent() const {
    return material && !(material->BlendKind == kOpaqueBlend && material->Alpha >= kOpaqueAlpha);
}

const PartTree& NodePart::Tree() const {
    std::call_once(treeBuilt, [this] { tree = std::make_unique<const PartTree>(vertices); });
    return *tree;
}

} // namespace CockpitModel
