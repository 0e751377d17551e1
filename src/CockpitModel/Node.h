#pragma once

#include "CockpitModel/ModelAnimation.h"
#include "CockpitModel/NodePart.h"
#include "Utils/LinearAlgebra.h"
#include "Utils/NonAssignable.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

namespace CockpitModel {

class SceneGraph;

/// A node of the cockpit's tree, owned by its scene graph. Its matrices belong to the user interface thread; the graph
/// copies the worker's results into them.
struct Node : Utils::NonAssignable {
    Node() = default;

    Node* parent = nullptr; ///< null for a node without a parent
    SceneGraph* graph = nullptr;
    std::int32_t index = 0;                                         ///< in SceneGraph::Nodes
    std::optional<std::int32_t> parentIndex, peerIndex, childIndex; ///< peer: next sibling; child: first one
    std::vector<std::unique_ptr<NodePart>> parts;
    std::vector<NodePart*> clickableParts; ///< those with a mouse rectangle
    bool visible = true;                   ///< not used by drawing and picking
    Utils::Matrix4 localMatrix = Utils::Matrix4::Identity();
    Utils::Matrix4 worldMatrix = Utils::Matrix4::Identity();  ///< animation included
    Utils::Matrix4 parentMatrix = Utils::Matrix4::Identity(); ///< the parent's world matrix
    std::optional<std::int32_t> animationIndex;
    ModelAnimation* animation = nullptr; ///< in the graph's model
};

} // namespace CockpitModel
