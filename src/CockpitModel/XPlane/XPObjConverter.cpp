#include "CockpitModel/XPlane/XPObjConverter.h"

#include "CockpitModel/Touch/MouseFlags.h"
#include "Utils/FatalError.h"
#include "Utils/RangeCheck.h"

#include <algorithm>
#include <boost/filesystem/path.hpp>
#include <locale>
#include <numbers>
#include <sstream>
#include <utility>

namespace CockpitModel {

namespace {

/// Number of nodes that the child and peer fields of the node table can address.
constexpr std::size_t kMostNodes = 32767;
constexpr float kTimeEnd = 100;

void CheckNodeCount(const std::vector<XPObjAnimNode>& nodes, const std::string& file) {
    std::size_t count = 0;
    for (const XPObjAnimNode& node : nodes)
        count += std::max<std::size_t>(node.steps.size(), 1);
    if (count > kMostNodes)
        throw Utils::OutOfRange(
            file + ": " + std::to_string(count) +
            " nodes, one for each animation block and each further step in it; a model holds at most " +
            std::to_string(kMostNodes));
}

void CheckNames(const XPObjData& data, const std::string& file) {
    if (const auto& excess = data.nameExcess)
        throw Utils::OutOfRange(file + "(" + std::to_string(excess->line) +
                                "): the manipulators' datarefs, once for each TRIS line up to this one, have " +
                                std::to_string(excess->bytes) + " bytes; an object of this size may have at most " +
                                std::to_string(excess->most));
}

void AddMaterials(const std::string& folder, const std::vector<std::string>& textures, ModelData& model) {
    for (const std::string& texture : textures) {
        Material& material = model.materials.Children.emplace_back();
        material.TextureDiffuse = static_cast<std::int32_t>(model.textures.Children.size());
        material.BlendKind = kOpaqueBlend;
        material.Alpha = 1;
        model.textures.Children.push_back((boost::filesystem::path(folder) / texture).string());
    }
}

/// X-Plane's axes are right-handed and the model's are left-handed: z changes sign.
void AddVertices(const std::vector<XPObjVertex>& vertices, ModelData& model) {
    std::vector<Vertex>& pool = model.vertexBlocks.emplace_back().Children;
    pool.reserve(vertices.size());
    for (const XPObjVertex& v : vertices)
        pool.push_back({v.x, v.y, -v.z, v.nx, v.ny, -v.nz, v.u, v.v});
}

std::string RectText(const char* kind, const XPObjManip& manip) {
    std::ostringstream text;
    text.imbue(std::locale::classic());
    text << kind << ": " << manip.value1 << " , " << manip.value2 << " -- " << manip.dataref;
    return std::move(text).str();
}

MouseRect& AddRect(ModelData& model, RiffBlockPART& part) {
    part.MouseRectIndex = static_cast<std::int32_t>(model.mouseRects.size());
    part.mouseRect = model.mouseRects.emplace_back(std::make_shared<MouseRect>()).get();
    part.mouseRect->MouseFlags = MouseFlag::LeftSingle | MouseFlag::RightSingle;
    return *part.mouseRect;
}

void AddToggleRect(const XPObjManip& toggle, ModelData& model, RiffBlockPART& part) {
    MouseRect& rect = AddRect(model, part);
    rect.Text = RectText("ToggleVariable", toggle);
    rect.CallbackType = kFiresEvent;
    rect.EventCallback = std::make_shared<CallbackXPToggle>(toggle.dataref, toggle.value1, toggle.value2);
}

void AddDragRect(const XPObjManip& drag, ModelData& model, RiffBlockPART& part) {
    MouseRect& rect = AddRect(model, part);
    rect.Text = RectText("DragVariable", drag);
    rect.CallbackType = kTakesValue;
    rect.VariableCallback = std::make_shared<CallbackXPVariable>(drag.dataref, drag.value1, drag.value2);
}

void AddPart(const XPObjDrawCall& call, ModelData& model) {
    if (!call.drawEnabled && !call.toggle && !call.drag)
        return;
    RiffBlockPART& part = model.parts.emplace_back();
    part.Type = kTriangleList;
    part.Node = call.animNode;
    part.MaterialIndex = call.texture;
    part.IndexOffset = static_cast<std::uint32_t>(call.offset);
    part.IndexCount = static_cast<std::uint32_t>(call.count);
    part.SourceLine = call.line;
    part.ManipulatorLine = call.manipLine;
    if (call.toggle)
        AddToggleRect(*call.toggle, model, part);
    else if (call.drag)
        AddDragRect(*call.drag, model, part);
}

RiffBlockXANK TranslationKey(float time, float x, float y, float z) {
    RiffBlockXANK key;
    key.Time = time;
    key.IsTranslation = true;
    key.Translation = {x, y, -z};
    return key;
}

/// Converts a rotation from X-Plane's axes to the model's, which negates x and y.
RiffBlockXANK RotationKey(float time, const Utils::Vector3& axis, float degrees) {
    const auto radians = static_cast<float>(static_cast<double>(degrees) * std::numbers::pi / 180.0);
    RiffBlockXANK key;
    key.Time = time;
    key.Rotation = Utils::RotationAboutAxis(axis, radians);
    key.Rotation.x() = -key.Rotation.x();
    key.Rotation.y() = -key.Rotation.y();
    return key;
}

ModelAnimation StillAnimation() {
    ModelAnimation animation;
    animation.name = kDummyAnimationName;
    animation.rangeHigh = 1;
    animation.length = kTimeEnd;
    animation.tracks = {{TranslationKey(0, 0, 0, 0), TranslationKey(kTimeEnd, 0, 0, 0)}};
    return animation;
}

ModelAnimation StepAnimation(const XPObjAnimStep& step) {
    ModelAnimation animation;
    animation.name = step.dataref;
    animation.rangeLow = step.value1;
    animation.rangeHigh = step.value2;
    animation.length = kTimeEnd;
    if (step.translation) {
        const auto [x1, y1, z1, x2, y2, z2] = *step.translation;
        animation.tracks = {{TranslationKey(0, x1, y1, z1), TranslationKey(kTimeEnd, x2, y2, z2)}};
    } else {
        const auto [x, y, z, r1, r2] = *step.rotation;
        animation.tracks = {{RotationKey(0, {x, y, z}, r1), RotationKey(kTimeEnd, {x, y, z}, r2)}};
    }
    return animation;
}

void AddNode(const XPObjAnimNode& node, ModelData& model) {
    const auto index = static_cast<std::uint32_t>(model.sceneElements.Children.size());
    model.matrices.Children.push_back(Utils::Matrix4::Identity());
    model.visibilityInfos.emplace_back();
    // Beyond 4096 nodes the offset wraps and can become negative. That means the identity, which the matrix is anyway.
    model.sceneElements.Children.emplace_back().MapOffset = static_cast<std::int16_t>(sizeof(AnimationNode) * index);
    model.animationMap.Children.push_back({0, index});
    model.animationLinks.Children.push_back(static_cast<std::int16_t>(index == 0 ? -1 : index));
    if (node.steps.size() > 1)
        Utils::FatalError(HERE);
    model.animations.push_back(node.steps.empty() ? StillAnimation() : StepAnimation(node.steps.front()));
}

void AddLinks(const XPObjAnimNode& node, std::vector<SceneGraphElement>& elements) {
    std::int16_t* link = &elements[node.index].Child;
    for (const std::uint32_t child : node.children) {
        *link = static_cast<std::int16_t>(child);
        link = &elements[child].Peer;
    }
}

void CheckChildren(const std::vector<XPObjAnimNode>& nodes, const XPObjAnimNode& node) {
    for (const std::uint32_t child : node.children)
        if (nodes[child].parent != node.index)
            Utils::FatalError(HERE);
}

void CheckAllChildren(const std::vector<XPObjAnimNode>& nodes) {
    for (const XPObjAnimNode& node : nodes)
        CheckChildren(nodes, node);
}

/// Adds a new node with one step below another and returns its index.
std::uint32_t AppendToChain(std::vector<XPObjAnimNode>& nodes, std::uint32_t last, XPObjAnimStep step) {
    const auto index = static_cast<std::uint32_t>(nodes.size());
    XPObjAnimNode& node = nodes.emplace_back();
    node.index = index;
    node.parent = last;
    node.steps.push_back(std::move(step));
    nodes[last].children.push_back(index);
    if (nodes[last].index != last)
        Utils::FatalError(HERE);
    CheckChildren(nodes, nodes[last]);
    return index;
}

/// Keeps the node's first step and moves each further one to a new node below; returns the last of them. Checks exactly
/// the links that it changes.
std::uint32_t SplitIntoChain(std::vector<XPObjAnimNode>& nodes, std::uint32_t index) {
    if (nodes[index].steps.size() < 2)
        Utils::FatalError(HERE);
    std::vector<XPObjAnimStep> steps = std::exchange(nodes[index].steps, {});
    std::vector<std::uint32_t> children = std::exchange(nodes[index].children, {});
    std::uint32_t last = index;
    for (std::size_t i = 1; i < steps.size(); ++i)
        last = AppendToChain(nodes, last, std::move(steps[i]));
    nodes[index].steps.push_back(std::move(steps.front()));
    for (const std::uint32_t child : children)
        nodes[child].parent = last;
    nodes[last].children = std::move(children);
    CheckChildren(nodes, nodes[last]);
    return last;
}

} // namespace

void XPObjConverter::Convert(const std::string& folder, const XPObjData& data, ModelData& model) {
    CheckNodeCount(data.animNodes, model.sourcePath);
    CheckNames(data, model.sourcePath);
    model.emptyTextureLine = data.emptyTextureLine;
    AddMaterials(folder, data.textures, model);
    AddVertices(data.vertices, model);
    model.indexBlocks.emplace_back().Children.assign(data.indices.begin(), data.indices.end());

    std::vector<XPObjAnimNode> nodes = data.animNodes;
    std::vector<XPObjDrawCall> drawCalls = data.drawCalls;
    SplitAnimationSteps(nodes, drawCalls);
    model.parts.reserve(drawCalls.size());
    for (const XPObjDrawCall& call : drawCalls)
        AddPart(call, model);
    model.animations.reserve(nodes.size());
    for (const XPObjAnimNode& node : nodes)
        AddNode(node, model);
    for (const XPObjAnimNode& node : nodes)
        AddLinks(node, model.sceneElements.Children);
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

} // namespace CockpitModel
