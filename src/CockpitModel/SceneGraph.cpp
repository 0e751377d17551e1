#include "CockpitModel/SceneGraph.h"

#include "CockpitModel/PartMotion.h"
#include "CockpitModel/ScenePartBuilder.h"
#include "Logging/Logger.h"
#include "Utils/Paths.h"
#include "Utils/RangeCheck.h"

#include <algorithm>
#include <atomic>
#include <future>
#include <thread>
#include <utility>

namespace CockpitModel {

namespace {

/// Visibility flags are refreshed in this many slices, so that a frame updates few nodes.
constexpr std::size_t kVisibilitySlices = 20;

/// Null if the list has no such index.
template <typename Entry>
Entry* FindEntry(const std::vector<std::unique_ptr<Entry>>& list, std::int32_t index) {
    return index >= 0 && std::cmp_less(index, list.size()) ? list[static_cast<std::size_t>(index)].get() : nullptr;
}

/// A texture's path on disk, found ignoring case; empty if there is no such file.
boost::filesystem::path TexturePath(const std::string& folder, const std::string& name) {
    if (name.empty() || name.front() == '$')
        return {};
    return Utils::FindIgnoringCase(boost::filesystem::path(folder) / name);
}

} // namespace

SceneGraph::SceneGraph(const ModelData& source, const AircraftCockpit& cockpit, const PanelSet* panelSet)
    : TriggeredWorker([this] { UpdateTransforms(); }), model(source), textureFolder(cockpit.textureFolder),
      panels(panelSet) {
    std::uint32_t indexCount = 0;
    for (const RiffBlockPART& part : model.parts)
        indexCount += part.IndexCount;
    Logging::Logger::Get().Log(HERE, "Model has " + std::to_string(model.parts.size()) + " parts, " +
                                         std::to_string(indexCount) + " total drawn vertices, stored in array size " +
                                         std::to_string(model.vertexBlocks.size()));
    CheckPartSizes(model);
    MakeNodes();
    CheckForRings();
    LinkParents();
    PrepareUpdate();
    BuildParts(model, panels, nodes);
    SetAllPositions(0.0f);
    for (const auto& node : nodes)
        for (const auto& part : node->parts)
            AnalysePartMotion(*part);
    SetAllPositions(1.0f);
}

SceneGraph::~SceneGraph() {
    Stop();
}

void SceneGraph::MakeNodes() {
    nodes.reserve(model.sceneElements.Children.size());
    for (const SceneGraphElement& element : model.sceneElements.Children) {
        auto node = std::make_unique<Node>();
        node->graph = this;
        node->index = static_cast<std::int32_t>(nodes.size());
        if (element.Child >= 0)
            node->childIndex = element.Child;
        if (element.Peer >= 0)
            node->peerIndex = element.Peer;
        if (element.MapOffset >= 0) {
            const AnimationNode& entry =
                Utils::At(model.animationMap.Children, std::size_t(element.MapOffset) / sizeof(AnimationNode));
            node->localMatrix = Utils::At(model.matrices.Children, entry.MatrixIndex);
        }
        const std::int16_t link = Utils::At(model.animationLinks.Children, nodes.size());
        if (link >= 0 && static_cast<std::size_t>(link) < model.animations.size()) {
            node->animationIndex = link;
            node->animation = &model.animations[static_cast<std::size_t>(link)];
        }
        nodes.push_back(std::move(node));
    }
}

/// Rejects cycles, in which a walk along links or parents would never end.
void SceneGraph::CheckForRings() const {
    enum class State : std::uint8_t { New, Open, Done }; // Open: its links are being followed
    std::vector<State> states(nodes.size(), State::New);
    std::vector<std::int32_t> path;
    for (const auto& first : nodes) {
        path.push_back(first->index);
        while (!path.empty()) {
            State& state = states[static_cast<std::size_t>(path.back())];
            const Node& node = *nodes[static_cast<std::size_t>(path.back())];
            if (state != State::New) {
                state = State::Done;
                path.pop_back();
                continue;
            }
            state = State::Open;
            for (const auto& link : {node.childIndex, node.peerIndex}) {
                if (!link)
                    continue;
                const State linked = Utils::At(states, *link);
                if (linked == State::Open)
                    throw Utils::OutOfRange((model.sourcePath.empty() ? "" : model.sourcePath + ": ") +
                                            "the child and peer links of node " + std::to_string(*link) +
                                            " lead back to it");
                if (linked == State::New)
                    path.push_back(*link);
            }
        }
    }
}

void SceneGraph::LinkParents() {
    for (const auto& node : nodes) {
        for (std::optional<std::int32_t> next = node->childIndex; next;) {
            Node& child = *nodes[static_cast<std::size_t>(*next)];
            child.parentIndex = node->index;
            child.parent = node.get();
            next = child.peerIndex;
        }
    }
}

/// The nodes breadth-first from node 0, a node's peer before its child.
void SceneGraph::PrepareUpdate() {
    std::vector<bool> reached(nodes.size(), false);
    const auto append = [&](std::int32_t index, std::int32_t parent) {
        Node* const node = Utils::At(nodes, index).get();
        if (reached[static_cast<std::size_t>(index)])
            return;
        reached[static_cast<std::size_t>(index)] = true;
        UpdateStep& step = updateSteps.emplace_back();
        step.node = node;
        step.parent = parent;
        step.localMatrix = node->localMatrix;
        if (node->animation) {
            step.motion = motions.Add(*node->animation);
            step.animation = *node->animationIndex;
        }
    };
    append(0, -1);
    for (std::size_t i = 0; i < updateSteps.size(); ++i) {
        const Node& node = *updateSteps[i].node;
        if (node.peerIndex)
            append(*node.peerIndex, updateSteps[i].parent);
        if (node.childIndex)
            append(*node.childIndex, static_cast<std::int32_t>(i));
    }
    scratchList.reserve(updateSteps.size());
}

void SceneGraph::SetAllPositions(float position) {
    for (ModelAnimation& animation : model.animations)
        animation.position = position;
    {
        const std::lock_guard lock(mutex);
        positions.assign(model.animations.size(), position);
    }
    UpdateTransforms();
    const std::lock_guard lock(mutex);
    AdoptPublished();
}

void SceneGraph::UpdateTransforms() {
    {
        const std::lock_guard lock(mutex);
        scratchPositions.assign(positions.begin(), positions.end());
    }
    scratchList.resize(updateSteps.size());
    for (std::size_t i = 0; i < updateSteps.size(); ++i) {
        const UpdateStep& step = updateSteps[i];
        TraversalEntry& entry = scratchList[i];
        entry.node = step.node;
        if (step.parent < 0)
            entry.parentMatrix.setIdentity();
        else
            entry.parentMatrix = scratchList[static_cast<std::size_t>(step.parent)].worldMatrix;
        entry.worldMatrix.noalias() = step.localMatrix * entry.parentMatrix;
        if (step.motion.trackCount != 0)
            motions.Apply(step.motion, entry.worldMatrix, scratchPositions[static_cast<std::size_t>(step.animation)]);
    }
    // Swapping is safe: the next run overwrites every entry of the list that it gets back.
    const std::lock_guard lock(mutex);
    publishedList.swap(scratchList);
    publishedIsNew = true;
}

/// Copies the last finished matrices to the nodes. The caller holds the mutex.
void SceneGraph::AdoptPublished() {
    if (!publishedIsNew)
        return;
    for (const TraversalEntry& entry : publishedList) {
        entry.node->worldMatrix = entry.worldMatrix;
        entry.node->parentMatrix = entry.parentMatrix;
    }
    publishedIsNew = false;
}

Node* SceneGraph::FindNode(std::int32_t index) const {
    return FindEntry(nodes, index);
}

NodePart* SceneGraph::FindPart(PartAddress address) const {
    const Node* const node = FindNode(address.node);
    return node ? FindEntry(node->parts, address.part) : nullptr;
}

Rendering::GPUBitmap* SceneGraph::Texture(std::int32_t index) const {
    return Utils::At(textures, index).get();
}

void SceneGraph::BuildPartTrees() {
    std::vector<const NodePart*> parts;
    for (const auto& node : nodes)
        for (const auto& part : node->parts)
            parts.push_back(part.get());
    // The largest first, so that none is left over for one core at the end.
    std::ranges::stable_sort(parts, std::ranges::greater(), [](const NodePart* part) { return part->vertices.size(); });
    std::atomic<std::size_t> next = 0;
    const auto build = [&] {
        for (std::size_t i = next++; i < parts.size(); i = next++)
            parts[i]->Tree();
    };
    // Deferred where the system has no thread left: then this thread has built everything before it waits.
    std::vector<std::future<void>> helpers;
    for (unsigned core = 1; core < std::thread::hardware_concurrency(); ++core)
        helpers.push_back(std::async(std::launch::async | std::launch::deferred, build));
    build();
    for (std::future<void>& helper : helpers)
        helper.get();
}

void SceneGraph::PrepareGpuResources(Rendering::Context& context) {
    const auto first = std::ranges::find_if(nodes, [](const auto& node) { return !node->parts.empty(); });
    if (first != nodes.end() && !context.IsGeometryValid((*first)->parts.front()->geometry.get()))
        gpuResourcesStale = true;
    if (!gpuResourcesStale)
        return;
    for (const auto& node : nodes)
        for (const auto& part : node->parts)
            part->geometry = context.CreateGeometry(part->vertices);
    textures.clear();
    for (const std::string& name : model.textures.Children) {
        const boost::filesystem::path path = TexturePath(textureFolder, name);
        textures.push_back(path.empty() ? nullptr : context.LoadBitmap(path.string()));
    }
    gpuResourcesStale = false;
}

void SceneGraph::ReleaseGpuResources() {
    for (const auto& node : nodes)
        for (const auto& part : node->parts)
            part->geometry.reset();
    textures.clear();
    gpuResourcesStale = true;
}

void SceneGraph::SyncFromModel(ModelData& source) {
    for (std::size_t i = 0; i < model.animations.size(); ++i) {
        model.animations[i].position = Utils::At(source.animations, i).position;
        source.animations[i].enabled = model.animations[i].enabled;
    }
    const std::size_t count = source.visibilityInfos.size();
    if (count == 0)
        return;
    const std::size_t step = std::max<std::size_t>(count / kVisibilitySlices, 1);
    const std::size_t end = std::min(visibilityCursor + step, count);
    for (std::size_t i = visibilityCursor; i < end; ++i)
        Utils::At(nodes, i)->visible = source.visibilityInfos[i].Visible;
    visibilityCursor = end < count ? end : 0;
}

void SceneGraph::Refresh() {
    {
        const std::lock_guard lock(mutex);
        std::ranges::transform(model.animations, positions.begin(), &ModelAnimation::position);
    }
    if (firstRefreshDone) {
        Trigger();
        return;
    }
    RunAndWait();
    firstRefreshDone = true;
    const std::lock_guard lock(mutex);
    AdoptPublished();
}

void SceneGraph::VisitNodes(const Utils::Matrix4& view, const Utils::Matrix4& projection, Visitor visitor) {
    const std::lock_guard lock(mutex);
    AdoptPublished();
    for (const TraversalEntry& entry : publishedList)
        visitor(entry.worldMatrix, entry.parentMatrix, view, projection, *entry.node);
}

void SceneGraph::SetYokePrimary(NodePart& part) {
    yokePrimary = &part;
    for (const Node* node = part.node; node; node = node->parent)
        if (node->animation)
            node->animation->enabled = true;
}

} // namespace CockpitModel
