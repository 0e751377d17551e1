#include "CockpitModel/XPlane/XPObjConverter.h"

#include "CockpitModel/XPlane/AnimationChains.h"
#include "CockpitModel/XPlane/StepAnimations.h"
#include "CockpitModel/XPlane/XPObjParts.h"
#include "Utils/FatalError.h"
#include "Utils/RangeCheck.h"

#include <algorithm>
#include <boost/filesystem/path.hpp>
#include <utility>

namespace CockpitModel {

namespace {

/// Number of nodes that the child and peer fields of the node table can address.
constexpr std::size_t kMostNodes = 32767;
/// Number of keys of a model's key-framed steps, far above real ones. A long turn takes many.
constexpr std::size_t kMostKeys = 1 << 20;

void CheckNodeCount(std::size_t count, const std::string& file) {
    if (count > kMostNodes)
        throw Utils::OutOfRange(
            file + ": " + std::to_string(count) +
            " nodes, one for each animation block and each further step in it; a model holds at most " +
            std::to_string(kMostNodes));
}

std::size_t KeyCount(const ModelData& model) {
    std::size_t count = 0;
    for (const ModelAnimation& animation : model.animations)
        count += animation.keyFramed ? animation.tracks.front().size() : 0;
    return count;
}

void CheckKeyCount(const XPObjData& data, const ModelData& model, const std::string& file) {
    std::size_t count = KeyCount(model);
    for (const XPObjAnimNode& node : data.animNodes)
        for (const XPObjKeyStep& step : node.keySteps)
            if (count += KeyCount(step); count > kMostKeys)
                throw Utils::OutOfRange(file + ": the cockpit's key frames take more than " +
                                        std::to_string(kMostKeys) + " keys, one for each key and each half turn");
}

void CheckNames(const XPObjData& data, const std::string& file) {
    if (const auto& excess = data.nameExcess)
        throw Utils::OutOfRange(file + "(" + std::to_string(excess->line) +
                                "): the manipulators' datarefs, once for each TRIS line up to this one, have " +
                                std::to_string(excess->bytes) + " bytes; an object of this size may have at most " +
                                std::to_string(excess->most));
}

void AddMaterial(const std::string& texture, ModelData& model) {
    Material& material = model.materials.Children.emplace_back();
    material.TextureDiffuse = static_cast<std::int32_t>(model.textures.Children.size());
    material.BlendKind = kOpaqueBlend;
    material.Alpha = 1;
    model.textures.Children.push_back(texture);
}

std::string PathIn(const std::string& folder, const std::string& file) {
    return (boost::filesystem::path(folder) / file).string();
}

/// The first texture is the panel's, which belongs to the aircraft: all objects share its material.
void AddMaterials(const std::string& folder, const XPObjData& data, ModelData& model, const XPObjPlacement& placement) {
    if (!placement.place)
        AddMaterial(PathIn(folder, data.textures.front()), model);
    for (std::size_t i = 1; i < data.textures.size(); ++i)
        AddMaterial(PathIn(placement.textureFolder, data.textures[i]), model);
}

/// X-Plane's axes are right-handed and the model's are left-handed: z changes sign.
void AddVertices(const std::vector<XPObjVertex>& vertices, ModelData& model) {
    std::vector<Vertex>& pool = model.vertexBlocks.emplace_back().Children;
    pool.reserve(vertices.size());
    for (const XPObjVertex& v : vertices)
        pool.push_back({v.x, v.y, -v.z, v.nx, v.ny, -v.nz, v.u, v.v});
}

ModelAnimation AnimationOf(const XPObjAnimNode& node) {
    if (node.steps.size() + node.keySteps.size() > 1)
        Utils::FatalError(HERE);
    if (!node.keySteps.empty())
        return StepAnimation(node.keySteps.front());
    return node.steps.empty() ? StillAnimation() : StepAnimation(node.steps.front());
}

void AddNode(const XPObjAnimNode& node, ModelData& model) {
    const auto index = static_cast<std::uint32_t>(model.sceneElements.Children.size());
    model.matrices.Children.push_back(Utils::Matrix4::Identity());
    model.visibilityInfos.emplace_back();
    // Beyond 4096 nodes the offset wraps and can become negative. That means the identity, which the matrix is anyway.
    model.sceneElements.Children.emplace_back().MapOffset = static_cast<std::int16_t>(sizeof(AnimationNode) * index);
    model.animationMap.Children.push_back({0, index});
    model.animationLinks.Children.push_back(static_cast<std::int16_t>(index == 0 ? -1 : index));
    model.animations.push_back(AnimationOf(node));
}

/// `first` is the index of the object's first node in the model.
void AddLinks(const XPObjAnimNode& node, std::size_t first, std::vector<SceneGraphElement>& elements) {
    std::int16_t* link = &elements[first + node.index].Child;
    for (const std::uint32_t child : node.children) {
        *link = static_cast<std::int16_t>(first + child);
        link = &elements[first + child].Peer;
    }
}

/// Adds an attached object's first node to the children of node 0.
void LinkBelowRoot(std::size_t first, std::vector<SceneGraphElement>& elements) {
    std::int16_t* link = &elements.front().Child;
    while (*link >= 0)
        link = &elements[static_cast<std::size_t>(*link)].Peer;
    *link = static_cast<std::int16_t>(first);
}

/// Puts an object's nodes below a new first one, which moves them to the object's place.
void AddPlaceNode(const Utils::Vector3& place, std::vector<XPObjAnimNode>& nodes, std::vector<XPObjDrawCall>& calls) {
    for (XPObjAnimNode& node : nodes) {
        node.parent = node.parent == kXPObjNone ? 0 : node.parent + 1;
        ++node.index;
        for (std::uint32_t& child : node.children)
            ++child;
    }
    for (XPObjDrawCall& call : calls)
        ++call.animNode;
    XPObjAnimNode& first = *nodes.emplace(nodes.begin());
    first.children = {1};
    first.steps.emplace_back().translation = {place.x(), place.y(), place.z(), place.x(), place.y(), place.z()};
}

/// Sizes of a model's lists before an object is added.
struct ListSizes {
    explicit ListSizes(const ModelData& model)
        : nodes(model.sceneElements.Children.size()), materials(model.materials.Children.size()),
          manipulators(model.manipulators.size()), parts(model.parts.size()) {}

    std::size_t nodes, materials, manipulators, parts;
};

/// Turns a new part's indices into lists of its object to those into lists of the model.
void MoveIndices(RiffBlockPART& part, const ListSizes& before, const XPObjPlacement& placement, std::uint32_t block) {
    constexpr std::uint32_t panel = 0;
    part.Object = placement.object;
    part.VertexBlock = part.IndexBlock = block;
    part.Node += static_cast<std::uint32_t>(before.nodes);
    if (placement.place && part.MaterialIndex != panel && part.MaterialIndex != kXPObjNone)
        part.MaterialIndex += static_cast<std::uint32_t>(before.materials) - 1;
    if (part.ManipulatorIndex >= 0)
        part.ManipulatorIndex += static_cast<std::int32_t>(before.manipulators);
}

/// Index of the object's vertex block and index block.
std::uint32_t AddBlocks(const XPObjData& data, ModelData& model, const XPObjPlacement& placement) {
    if (placement.block)
        return *placement.block;
    AddVertices(data.vertices, model);
    model.indexBlocks.emplace_back().Children.assign(data.indices.begin(), data.indices.end());
    return static_cast<std::uint32_t>(model.vertexBlocks.size() - 1);
}

void AddNodes(const std::vector<XPObjAnimNode>& nodes, ModelData& model) {
    const std::size_t first = model.sceneElements.Children.size();
    model.animations.reserve(first + nodes.size());
    for (const XPObjAnimNode& node : nodes)
        AddNode(node, model);
    for (const XPObjAnimNode& node : nodes)
        AddLinks(node, first, model.sceneElements.Children);
    if (first > 0)
        LinkBelowRoot(first, model.sceneElements.Children);
}

void Check(const XPObjData& data, const ModelData& model, const XPObjPlacement& placement) {
    const std::string& file = placement.place ? model.objects.at(placement.object).path : model.sourcePath;
    CheckNodeCount(model.sceneElements.Children.size() + NodeCount(data, placement), file);
    CheckNames(data, file);
    CheckKeyCount(data, model, file);
    if (!placement.place || placement.block)
        return;
    // Without it a draw call could use what belongs to no object, and the whole cockpit could not be built.
    for (const XPObjDrawCall& call : data.drawCalls)
        if (IsFullPart(call, data))
            CheckDrawCall(call, data, file);
}

} // namespace

std::size_t NodeCount(const XPObjData& data, const XPObjPlacement& placement) {
    std::size_t count = placement.place ? 1 : 0;
    for (const XPObjAnimNode& node : data.animNodes) {
        const auto keyed = std::ranges::count_if(node.keySteps, [](const auto& step) { return !step.keys.empty(); });
        const bool movesNothing = node.index == 0 && !placement.place; // the root of the cockpit object
        count += std::max<std::size_t>(node.steps.size() + (movesNothing ? 0 : static_cast<std::size_t>(keyed)), 1);
    }
    return count;
}

std::uint64_t DrawnVertices(const XPObjData& data, Reading reading) {
    std::uint64_t count = 0;
    for (const XPObjDrawCall& call : data.drawCalls)
        if (reading == Reading::Full ? IsFullPart(call, data) : IsPlainPart(call))
            count += static_cast<std::uint64_t>(std::max(call.count, 0));
    return count;
}

void CheckDrawCall(const XPObjDrawCall& call, const XPObjData& data, const std::string& file) {
    const std::string place = file + "(" + std::to_string(call.line) + "): TRIS ";
    const std::int64_t end = std::int64_t{call.offset} + call.count;
    if (call.offset < 0 || call.count < 0 || std::cmp_greater(end, data.indices.size()))
        throw Utils::OutOfRange(place + std::to_string(call.offset) + " " + std::to_string(call.count) +
                                " reaches beyond the " + std::to_string(data.indices.size()) + " indices of the file");
    for (std::int64_t i = call.offset; i < end; ++i)
        if (const std::int32_t vertex = data.indices[static_cast<std::size_t>(i)];
            vertex < 0 || std::cmp_greater_equal(vertex, data.vertices.size()))
            throw Utils::OutOfRange(place + "needs vertex " + std::to_string(vertex) +
                                    " (counted from 0), but the object has " + std::to_string(data.vertices.size()));
}

void XPObjConverter::Convert(const std::string& folder, const XPObjData& data, ModelData& model) {
    XPObjPlacement placement;
    placement.textureFolder = folder;
    Convert(folder, data, model, placement);
}

void XPObjConverter::Convert(const std::string& folder, const XPObjData& data, ModelData& model,
                             const XPObjPlacement& placement) {
    const ListSizes before(model);
    Check(data, model, placement);
    model.reading = placement.reading;
    if (!placement.place)
        model.emptyTextureLine = data.emptyTextureLine;
    AddMaterials(folder, data, model, placement);
    const std::uint32_t block = AddBlocks(data, model, placement);

    std::vector<XPObjAnimNode> nodes = data.animNodes;
    std::vector<XPObjDrawCall> drawCalls = data.drawCalls;
    if (placement.place)
        AddPlaceNode(*placement.place, nodes, drawCalls);
    const auto blocks = static_cast<std::uint32_t>(nodes.size());
    SplitAnimationSteps(nodes, drawCalls);
    InsertAllKeyFrames(nodes, blocks);
    AddParts(data, drawCalls, model, placement.reading);
    for (std::size_t i = before.parts; i < model.parts.size(); ++i)
        MoveIndices(model.parts[i], before, placement, block);
    model.manipulators.insert(model.manipulators.end(), data.manipulators.begin(), data.manipulators.end());
    AddNodes(nodes, model);
    if (!placement.place)
        MarkRootSteps(blocks, model);
}

/// Each split checks the links that it changes and keeps all others, so one check of the whole list at the end is
/// enough.
void XPObjConverter::SplitAnimationSteps(std::vector<XPObjAnimNode>& nodes, std::vector<XPObjDrawCall>& drawCalls) {
    const auto count = static_cast<std::uint32_t>(nodes.size()); // nodes added by splitting have one step
    for (std::uint32_t index = 0; index < count; ++index)
        if (nodes[index].steps.size() > 1)
            SplitNode(nodes, drawCalls, index);
    if (!splitNodes.empty())
        CheckAllChildren(nodes);
    for (XPObjDrawCall& call : drawCalls)
        if (const auto split = splitNodes.find(call.animNode); split != splitNodes.end())
            call.animNode = split->second;
}

void XPObjConverter::SplitNode(std::vector<XPObjAnimNode>& nodes, std::vector<XPObjDrawCall>&, std::uint32_t index) {
    splitNodes[index] = SplitIntoChain(nodes, index);
}

void XPObjConverter::InsertAllKeyFrames(std::vector<XPObjAnimNode>& nodes, std::uint32_t blockCount) const {
    // Those of the first node are outside all blocks of the cockpit object and move nothing; a place node has none.
    nodes.front().keySteps.clear();
    for (std::uint32_t index = 1; index < blockCount; ++index)
        if (!nodes[index].keySteps.empty())
            InsertKeyFrames(nodes, ChainOf(nodes, index));
}

std::vector<std::uint32_t> XPObjConverter::ChainOf(const std::vector<XPObjAnimNode>& nodes, std::uint32_t index) const {
    std::vector<std::uint32_t> chain{index};
    if (const auto split = splitNodes.find(index); split != splitNodes.end())
        while (chain.back() != split->second)
            chain.push_back(nodes[chain.back()].children.front());
    return chain;
}

/// The nodes that the root's further steps were moved to follow the nodes of all blocks.
void XPObjConverter::MarkRootSteps(std::uint32_t blockCount, ModelData& model) const {
    model.animations.front().outsideBlocks = true;
    if (const auto split = splitNodes.find(0); split != splitNodes.end())
        for (std::uint32_t index = blockCount; index <= split->second; ++index)
            model.animations[index].outsideBlocks = true;
}

} // namespace CockpitModel
