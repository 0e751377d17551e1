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

/// A node's matrices in one finished update, for drawing and picking.
struct TraversalEntry {
    Node* node = nullptr;
    Utils::Matrix4 parentMatrix = Utils::Matrix4::Identity();
    Utils::Matrix4 worldMatrix = Utils::Matrix4::Identity();
};

/// The live cockpit: a tree of nodes with their parts, made from a copy of a model, and a worker thread that keeps the
/// world matrices up to date. Only the user interface thread may call its operations. The worker gets the animation
/// positions by value and returns its finished list by value, so that no field is shared without a lock.
class SceneGraph : private Threading::TriggeredWorker {
public:
    /// Complete on return, with every animation at position 1. Keeps the pointer to the panel set, which may be null.
    /// An index out of range in the model and nodes linked in a cycle throw Utils::OutOfRange with the reason.
    SceneGraph(const ModelData& source, const AircraftCockpit& cockpit, const PanelSet* panels);
    ~SceneGraph();

    const std::vector<std::unique_ptr<Node>>& Nodes() const { return nodes; }
    /// Null if the cockpit has no such node or part.
    Node* FindNode(std::int32_t index) const;
    NodePart* FindPart(PartAddress address) const;
    const ModelData& Model() const { return model; }
    /// Null if there is no such file; an index out of range throws Utils::OutOfRange.
    Rendering::GPUBitmap* Texture(std::int32_t index) const;

    /// Builds the picking trees of all parts, on all cores. Optional: a part builds its tree on first use.
    void BuildPartTrees();

    /// Creates geometry and textures that are missing or belong to another device.
    void PrepareGpuResources(Rendering::Context& context);
    /// Releases geometry and textures; their device must be current. They are created again when needed.
    void ReleaseGpuResources();
    /// Reads animation positions and one slice of the visibility, and writes the enabled flags back.
    void SyncFromModel(ModelData& source);
    /// Starts the worker on the matrices for the current positions; the first call waits for them.
    void Refresh();

    using Visitor = std::function<void(const Utils::Matrix4& world, const Utils::Matrix4& parent,
                                       const Utils::Matrix4& view, const Utils::Matrix4& projection, Node& node)>;
    /// Calls the visitor for each node reachable from node 0, a parent before its children, with the matrices of the
    /// last finished update. A visitor must not start another visit.
    void VisitNodes(const Utils::Matrix4& view, const Utils::Matrix4& projection, Visitor visitor);

    /// Stores the primary yoke and enables the animations above it.
    void SetYokePrimary(NodePart& part);

private:
    /// A step of the update, prepared once because links and animations never change. Parents come before their
    /// children.
    struct UpdateStep {
        Node* node = nullptr;
        std::int32_t parent = -1;   ///< step of the parent node; -1 at the root's level
        std::int32_t animation = 0; ///< that moves it; arbitrary if none does
        MotionTable::Motion motion;
        Utils::Matrix4 localMatrix = Utils::Matrix4::Identity(); ///< the node's
    };

    void MakeNodes();
    void CheckForRings() const;
    void LinkParents();
    void PrepareUpdate();
    void SetAllPositions(float position);
    void UpdateTransforms();
    void AdoptPublished();

    std::mutex mutex;                          ///< guards positions, publishedList and publishedIsNew
    std::vector<float> positions;              ///< by animation, the worker's next input
    std::vector<TraversalEntry> scratchList;   ///< the worker's own
    std::vector<float> scratchPositions;       ///< the worker's own
    std::vector<TraversalEntry> publishedList; ///< the last finished update
    bool publishedIsNew = false;               ///< the nodes' matrices are older than publishedList

    std::vector<UpdateStep> updateSteps; ///< read by the worker, like the motions; neither changes
    MotionTable motions;
    std::size_t visibilityCursor = 0; ///< first node of the next slice
    std::vector<std::unique_ptr<Node>> nodes;
    std::vector<std::unique_ptr<Rendering::GPUBitmap>> textures; ///< by texture name; null if there is no file
    ModelData model;
    std::string textureFolder;
    const PanelSet* panels;
    NodePart* yokePrimary = nullptr; ///< what detection chose
    bool gpuResourcesStale = true;
    bool firstRefreshDone = false;
};

} // namespace CockpitModel
