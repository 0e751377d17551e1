#include "CockpitModel/XPlane/VrConfigParts.h"

#include "CockpitModel/SceneGraph.h"
#include "CockpitModel/XPlane/Manipulators.h"

namespace CockpitModel {

namespace {

using Family = ManipulatorFamily;
using Type = TouchInteractionType;

std::string Key(const std::string& keyword, const std::vector<std::string>& names) {
    std::string key = keyword;
    for (const std::string& name : names)
        key += ' ' + name;
    return key;
}

} // namespace

std::string VrConfigKey(const VrConfigBlock& block) {
    return Key(block.keyword, block.names);
}

std::string VrConfigKey(const Manipulator& manipulator) {
    return Key(manipulator.keyword, manipulator.names);
}

VrConfigParts::VrConfigParts(const SceneGraph& sceneGraph) {
    for (const auto& node : sceneGraph.Nodes())
        for (const auto& part : node->parts)
            if (part->manipulator)
                parts[VrConfigKey(*part->manipulator)].push_back(part.get());
}

const std::vector<const NodePart*>& VrConfigParts::Of(const VrConfigBlock& block) const {
    static const std::vector<const NodePart*> none;
    const auto found = parts.find(VrConfigKey(block));
    return found == parts.end() ? none : found->second;
}

std::optional<Type> VrConfigKind(const VrConfigBlock& block, const Manipulator& manipulator) {
    const std::string_view name = block.ActionKeyword();
    const ManipulatorKeyword* const keyword = FindManipulatorKeyword(name);
    if (!keyword || keyword->adds)
        return std::nullopt;
    switch (keyword->family) {
    case Family::Knob:
        return Type::Twist;
    case Family::Switch:
        return manipulator.cursor.starts_with("rotate") ? Type::Twist : Type::Move;
    case Family::CommandAxis:
        return Type::Move;
    case Family::DragXY:
        return Type::YokePart;
    case Family::Drag:
        if (name != "drag_axis_pix" && block.Find("DEG_PER_ACTION"))
            return Type::Twist;
        break;
    case Family::Button:
    case Family::Untouched:
        break;
    }
    return std::nullopt;
}

bool WantsVrConfigBlock(const Manipulator& manipulator, Type type) {
    switch (manipulator.family) {
    case Family::Knob:
    case Family::Switch:
    case Family::Drag:
    case Family::CommandAxis:
        return type == Type::Twist;
    case Family::DragXY:
        return IsYoke(type);
    case Family::Button:
    case Family::Untouched:
        break;
    }
    return false;
}

} // namespace CockpitModel
