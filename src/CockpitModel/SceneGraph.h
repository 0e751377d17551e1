#pragma once

#include "CockpitModel/AircraftCockpit.h"
#include "CockpitModel/ModelData.h"
#include "CockpitModel/MotionTable.h"
#include "CockpitModel/Node.h"
#include "CockpitModel/PartAddress.h"
#include "Rendering/Context.h"
#include "Threading/TriggeredWorker.h"
#include "Utils/LinearAlgebra.h"

#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

namespace CockpitModel {

class PanelSet;

/// A node's place in one finished update, as drawing and picking see it.
struct TraversalEntry {
    Node* node = nullptr;
    Utils::Matrix4 parentMatrix = Utils::Matrix4::Identity();
    Utils::Matrix4 worldMatrix = Utils::Matrix4::Identity();
};

/// The live cockpit: a tree of nodes with their parts, made from a copy of a model, and a worker thread that keeps the
/// world matrices up to date. All operations belong to the user interface thread. The worker gets the animation
/// positions by value and hands its finished list over by value, so that no field is shared unguarded.
class SceneGraph : private Threading::TriggeredWorker {
public:
    /// Complete on return, with every animation at position 1. Keeps the pointer to the panel set, which may be null.
    /// An index of the model that names nothing, and nodes that are linked in a ring, throw Utils::OutOfRange with the
    /// reason.
    SceneGraph(const ModelData& source, const AircraftCockpit& cockpit, const PanelSet* panels);
    ~SceneGraph();

    const std::vector<std::unique_ptr<Node>>& Nodes() const { return nodes; }
    /// Null for one that the cockpit does not have.
    Node* FindNode(std::int32_t index) const;
    NodePart* FindPart(PartAddress address) const;
    const ModelData& Model() const { return model; }
    /// Null where there is no such file; an index outside the list throws Utils::OutOfRange.
    Rendering::GPUBitmap* Texture(std::int32_t index) const;

    /// Builds the picking trees of all parts, on all cores. Whoever asks few parts for theirs does without: a part
    /// builds its tree when it is first asked.
    void BuildPartTrees();

    /// Makes geometry and textures when they are missing or belong to another device.
    void PrepareGpuResources(Rendering::Context& context);
    /// Lets go of geometry and textures, while their device is current. They are made again when they are needed.
    void ReleaseGpuResources();
    /// Pulls animation positions and one slice of the visibility over, and hands the enabled flags back.
    void SyncFromModel(ModelData& source);
    /// Has the worker compute the matrices for the present positions; the first call waits for them.
    void Refresh();

    using Visitor = std::function<void(const Utils::Matrix4& world, const Utils::Matrix4& parent,
                                       const Utils::Matrix4& view, const Utils::Matrix4& projection, Node& node)>;
    /// Calls the visitor for each node reachable from node 0, a parent ahead of its children, with the matrices of the
    /// last finished update. A visitor must not start a visit.
    void VisitNodes(const Utils::Matrix4& view, const Utils::Matrix4& projection, Visitor visitor);

    /// Enables the animations above the primary yoke.
    void SetYokePrimary(NodePart& part);

private:
    /// A step of the update, prepared once, as links, places and animations never change. Parents come before their
    /// children.
    struct UpdateStep {
        Node* node = nullptr;
        std::int32_t parent = -1;   ///< step whose world matrix places this node; -1 for the root's level
        std::int32_t animation = 0; ///< whose position moves it; any where nothing does
        MotionTable::Motion motion;
        Utils::Matrix4 localMatrix = Utils::Matrix4::Identity(); ///< the node's
    };

    void MakeNodes();
    void CheckForRings() const;
    void LinkParents();
    void PrepareUpdate();
    void CheckSize() const;
    void BuildParts(const RiffBlockPART& block);
    void SetAllPositions(float position);
    void UpdateTransforms();
    void AdoptPublished();

    std::mutex mutex;                          ///< guards positions, publishedList and publishedIsNew
    std::vector<float> positions;              ///< by animation, the worker's next input
    std::vector<TraversalEntry> scratchList;   ///< the worker's own
    std::vector<float> scratchPositions;       ///< the worker's own
    std::vector<TraversalEntry> publishedList; ///< the last finished update
    bool publishedIsNew = false;               ///< the nodes' own matrices are older than publishedList

    std::vector<UpdateStep> updateSteps; ///< read by the worker, as are the motions; neither changes
    MotionTable motions;
    std::size_t visibilityCursor = 0; ///< node at which the next slice starts
    std::vector<std::unique_ptr<Node>> nodes;
    std::vector<std::unique_ptr<Rendering::GPUBitmap>> textures; ///< by texture name; null where there is no file
    ModelData model;
    std::string textureFolder;
    const PanelSet* panels;
    bool gpuResourcesStale = true;
    bool firstRefreshDone = false;
};

} // namespace CockpitModel
