#include "Batch/Commands/CockpitJson.h"

#include "Batch/Reports/Json.h"

#include <map>
#include <optional>

namespace Batch {

namespace {

using CockpitModel::ModelAnimation;
using CockpitModel::MouseRect;
using CockpitModel::Node;
using CockpitModel::NodePart;
using CockpitModel::Panel;
using CockpitModel::RiffBlockXANK;

Json ToJson(const std::optional<std::int32_t>& index) {
    return index ? Json(*index) : Json();
}

Json ToJson(const float* numbers, std::size_t count) {
    return std::vector<float>(numbers, numbers + count);
}

Json ToJson(const Utils::Vector3& vector) {
    return ToJson(vector.data(), 3);
}

Json ToJson(const RiffBlockXANK& key) {
    Json json{{"time", key.Time}};
    if (key.IsTranslation)
        json["translation"] = ToJson(key.Translation);
    else
        json["rotation"] = ToJson(key.Rotation.coeffs().data(), 4); // x, y, z, w
    return json;
}

/// The keys of all tracks; X-Plane cockpits have one track.
Json KeysToJson(const ModelAnimation* animation) {
    Json keys = Json::array();
    if (!animation)
        return keys;
    for (const auto& track : animation->tracks)
        for (const RiffBlockXANK& key : track)
            keys.push_back(ToJson(key));
    return keys;
}

Json ToJson(const Node& node) {
    return {{"index", node.index},
            {"parent", ToJson(node.parentIndex)},
            {"child", ToJson(node.childIndex)},
            {"peer", ToJson(node.peerIndex)},
            {"animation", node.animation ? JsonText(node.animation->name) : Json()},
            {"keys", KeysToJson(node.animation)},
            {"worldMatrix", ToJson(node.worldMatrix.data(), 16)}};
}

Json ToJson(const MouseRect& rect) {
    return {{"text", JsonText(rect.Text)}, {"mouseFlags", rect.MouseFlags}, {"callbackType", rect.CallbackType}};
}

Json ToJson(const NodePart& part) {
    return {{"nodeId", part.node->index},
            {"partId", part.id},
            {"vertexCount", part.vertices.size()},
            {"textureIndex", ToJson(part.textureIndex)},
            {"textureName", JsonText(part.textureName)},
            {"mouseRect", part.Rect() ? ToJson(*part.Rect()) : Json()},
            {"farthestVertex", ToJson(part.FarthestVertex)},
            {"axisTip", ToJson(part.AxisTip)},
            {"rotationAxis", ToJson(part.RotationAxis)},
            {"balanceFactor", part.BalanceFactor},
            {"sweepRadius", part.SweepRadius},
            {"interactionType", TouchInteractionTypeToText(part.InteractionType)},
            {"eventType", TouchEventTypeToText(part.EventType)}};
}

/// What only the full reading has of a node. The time of a key is a percentage of the range.
void AddFullMembers(const ModelAnimation& animation, Json& node) {
    node["range"] = {animation.rangeLow, animation.rangeHigh};
    node["keyFramed"] = animation.keyFramed;
    node["loop"] = animation.loop;
    node["outsideBlocks"] = animation.outsideBlocks;
}

Json FullJson(const Node& node) {
    Json json = ToJson(node);
    if (node.animation)
        AddFullMembers(*node.animation, json);
    return json;
}

Json ToJson(const CockpitModel::Manipulator& manipulator) {
    Json names = Json::array();
    for (const std::string& name : manipulator.names)
        names.push_back(JsonText(name));
    return {
        {"line", manipulator.line},       {"keyword", manipulator.keyword}, {"cursor", JsonText(manipulator.cursor)},
        {"numbers", manipulator.numbers}, {"names", std::move(names)},      {"tooltip", JsonText(manipulator.tooltip)}};
}

Json FullJson(const NodePart& part) {
    Json json = ToJson(part);
    const bool hasObject = part.block.SourceLine != 0;
    json["object"] = hasObject ? JsonText(part.node->graph->Model().objects.at(part.block.Object).name) : Json();
    json["line"] = hasObject ? Json(part.block.SourceLine) : Json();
    json["manipulator"] = part.manipulator ? ToJson(*part.manipulator) : Json();
    return json;
}

Json ToJson(const Panel& panel) {
    Json entries = Json::array();
    for (const CockpitModel::PanelEntry& entry : panel.Entries)
        entries.push_back({{"u", entry.U},
                           {"v", entry.V},
                           {"width", entry.Width},
                           {"height", entry.Height},
                           {"mouseRect", ToJson(entry.Rect)}});
    return {{"texture", JsonText(panel.Texture)}, {"entries", std::move(entries)}};
}

/// Streams the members of the outermost object, so a cockpit is never in memory as JSON.
class MemberWriter {
public:
    explicit MemberWriter(std::ostream& target) : stream(target) { stream << '{'; }

    void Member(const char* name, const Json& value) {
        Begin(name);
        stream << value.dump();
    }
    void BeginList(const char* name) {
        Begin(name);
        stream << '[';
        firstItem = true;
    }
    void Item(const Json& value) {
        stream << (firstItem ? "\n  " : ",\n  ") << value.dump();
        firstItem = false;
    }
    void EndList() { stream << (firstItem ? "]" : "\n ]"); }
    void Finish() { stream << "\n}\n"; }

private:
    void Begin(const char* name) {
        stream << (firstMember ? "\n " : ",\n ") << Json(name).dump() << ": ";
        firstMember = false;
    }

    std::ostream& stream;
    bool firstMember = true, firstItem = true;
};

void WritePanels(MemberWriter& writer, const CockpitModel::PanelSet& panels) {
    std::map<std::string, const Panel*> byTexture; // the set has no order of its own
    for (const auto& [texture, panel] : panels.Panels())
        byTexture[texture] = panel.get();
    writer.BeginList("panels");
    for (const auto& [texture, panel] : byTexture)
        writer.Item(ToJson(*panel));
    writer.EndList();
}

} // namespace

void WriteCockpitJson(std::ostream& stream, const Sim::AircraftInfo& info, const CockpitModel::AircraftCockpit& cockpit,
                      const CockpitModel::SceneGraph& sceneGraph, const CockpitModel::PanelSet* panels) {
    MemberWriter writer(stream);
    writer.Member("displayName", JsonText(info.displayName));
    writer.Member("acfPath", JsonText(info.acfPath));
    writer.Member("pilotEye", ToJson(cockpit.pilotEye));
    Json textures = Json::array();
    for (const std::string& name : sceneGraph.Model().textures.Children)
        textures.push_back(JsonText(name));
    writer.Member("textures", textures);
    if (panels)
        WritePanels(writer, *panels);
    const bool full = sceneGraph.Model().reading == CockpitModel::Reading::Full;
    writer.BeginList("nodes");
    for (const auto& node : sceneGraph.Nodes())
        writer.Item(full ? FullJson(*node) : ToJson(*node));
    writer.EndList();
    writer.BeginList("parts");
    for (const auto& node : sceneGraph.Nodes())
        for (const auto& part : node->parts)
            writer.Item(full ? FullJson(*part) : ToJson(*part));
    writer.EndList();
    writer.Finish();
}

} // namespace Batch
