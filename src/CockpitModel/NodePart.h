#pragma once

#include "CockpitModel/Blocks/ModelBlocks.h"
#include "CockpitModel/Touch/MouseRect.h"
#include "CockpitModel/Touch/TouchTypes.h"
#include "Rendering/Context.h"
#include "Utils/NonAssignable.h"

#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

namespace CockpitModel {

struct Node;
struct Panel;
class PartTree;

/// What a person sees, picks and annotates: the triangles of one draw call, in the space of its node. Owned by its
/// node and alive as long as the scene graph, so that plain pointers to it serve everywhere else.
struct NodePart : Utils::NonAssignable {
    NodePart();
    ~NodePart();

    std::int32_t id = -1; ///< place in its node's parts
    Node* node = nullptr;
    TouchEventType EventType = TouchEventType::Wheel; ///< as detected
    bool Reverse = false;
    std::unique_ptr<Rendering::Geometry> geometry;   ///< made by SceneGraph::PrepareGpuResources
    std::vector<Rendering::GeometryVertex> vertices; ///< three a triangle
    RiffBlockPART block;                             ///< of a part from a panel: default, apart from its rectangle
    MouseRect panelRect;                             ///< of a part from a panel; empty elsewhere
    std::optional<std::int32_t> textureIndex;
    std::string textureName;
    const Material* material = nullptr; ///< in the graph's model
    Panel* panel = nullptr;             ///< the panel that shows on this part's texture

    /// The measures of the part's motion, in node space, metres; see AnalysePartMotion.
    Utils::Vector3 FarthestVertex = Utils::Vector3::Zero();
    Utils::Vector3 AxisTip = Utils::Vector3::Zero();
    Utils::Vector3 RotationAxis = Utils::Vector3::Zero();
    float BalanceFactor =
        -42.3f; ///< 0 is balanced about the motion's centre; the default marks a part not yet measured
    float SweepRadius = 0;

    TouchInteractionType InteractionType = TouchInteractionType::None; ///< as detected

    /// Null for a part that cannot be clicked.
    MouseRect* Rect() const { return block.mouseRect; }
    bool IsTransparent() const;
    /// Over `vertices`, which stay as they are from the first call on: that call builds it. Any thread.
    const PartTree& Tree() const;

private:
    mutable std::once_flag treeBuilt; ///< guards `tree`
    mutable std::unique_ptr<const PartTree> tree;
};

} // namespace CockpitModel
