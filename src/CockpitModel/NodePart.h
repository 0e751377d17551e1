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

struct Manipulator;
struct Node;
struct Panel;
class PartTree;

/// What the user sees, picks and annotates: the triangles of one draw call, in the space of its node. Owned by its
/// node; plain pointers to it are valid while the scene graph lives.
struct NodePart : Utils::NonAssignable {
    NodePart();
    ~NodePart();

    std::int32_t id = -1; ///< index in its node's parts
    Node* node = nullptr;
    TouchEventType EventType = TouchEventType::Wheel; ///< as detected
    bool Reverse = false;
    std::unique_ptr<Rendering::Geometry> geometry;   ///< created by SceneGraph::PrepareGpuResources
    std::vector<Rendering::GeometryVertex> vertices; ///< three per triangle
    RiffBlockPART block;                             ///< for a part from a panel: default, except for its rectangle
    MouseRect panelRect;                             ///< for a part from a panel; otherwise empty
    std::optional<std::int32_t> textureIndex;
    std::string textureName;
    const Material* material = nullptr;       ///< in the graph's model
    const Manipulator* manipulator = nullptr; ///< in the graph's model; null without one and in the plain reading
    Panel* panel = nullptr;                   ///< the panel shown on this part's texture

    /// Measurements of the part's motion, in node space, metres; see AnalysePartMotion.
    Utils::Vector3 FarthestVertex = Utils::Vector3::Zero();
    Utils::Vector3 AxisTip = Utils::Vector3::Zero();
    Utils::Vector3 RotationAxis = Utils::Vector3::Zero();
    float BalanceFactor = -42.3f; ///< 0 is balanced about the motion's centre; the default means not yet measured
    float SweepRadius = 0;

    TouchInteractionType InteractionType = TouchInteractionType::None; ///< as detected

    /// Null for a part that cannot be clicked.
    MouseRect* Rect() const { return block.mouseRect; }
    bool IsTransparent() const;
    /// The tree over `vertices`, which must not change after the first call, which builds it. Any thread.
    const PartTree& Tree() const;

private:
    mutable std::once_flag treeBuilt; ///< guards `tree`
    mutable std::unique_ptr<const PartTree> tree;
};

} // namespace CockpitModel
