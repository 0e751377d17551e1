#include "CockpitModel/XPlane/FullLines.h"

#include "CockpitModel/XPlane/Manipulators.h"
#include "CockpitModel/XPlane/ValueText.h"

namespace CockpitModel {

namespace {

constexpr std::string_view kAnimationPrefix = "ANIM_";

std::array<float, 3> ThreeNumbers(ValueText& text) {
    std::array<float, 3> numbers{};
    for (float& number : numbers)
        number = text.Number();
    return numbers;
}

} // namespace

void FullLines::Read(std::string_view keyword, std::string_view values, std::uint32_t line, std::uint32_t node) {
    if (keyword.starts_with(kManipulatorPrefix))
        ReadManipulatorLine(keyword.substr(kManipulatorPrefix.size()), values, line);
    else if (keyword == "ATTR_LOD")
        farLevel = ValueText(values).Number() > 0;
    else if (keyword.starts_with(kAnimationPrefix))
        ReadAnimationLine(keyword.substr(kAnimationPrefix.size()), values, data.animNodes[node]);
}

void FullLines::ReadVisibilityLine(std::string_view name, std::string_view values) {
    if (name == "begin") {
        hidden.push_back({hidden.back().above || hidden.back().here, false});
    } else if (name == "end" && hidden.size() > 1) {
        hidden.pop_back();
    } else if (name == "hide" || name == "show") {
        ValueText text(values);
        const float from = text.Number(), to = text.Number();
        if (from <= 0 && to >= 0)
            hidden.back().here = name == "hide";
    }
}

void FullLines::ReadManipulatorLine(std::string_view name, std::string_view values, std::uint32_t line) {
    const ManipulatorKeyword* const keyword = FindManipulatorKeyword(name);
    if (keyword && keyword->adds)
        return;
    inForce = kXPObjNone;
    if (!keyword || keyword->name == "none")
        return;
    inForce = static_cast<std::uint32_t>(data.manipulators.size());
    data.manipulators.push_back(ReadManipulator(*keyword, values, line));
}

void FullLines::ReadAnimationLine(std::string_view name, std::string_view values, XPObjAnimNode& node) {
    ReadVisibilityLine(name, values);
    if (name == "rotate_key" || name == "trans_key")
        AddKey(name == "rotate_key", values, node);
    else if (name == "rotate_begin" || name == "trans_begin")
        BeginSteps(name == "rotate_begin", values, node);
    else if (name == "keyframe_loop" && !node.keySteps.empty())
        node.keySteps.back().loop = ValueText(values).Number();
    else if (name == "rotate_end" || name == "trans_end" || name == "begin" || name == "end")
        open = false;
}

void FullLines::BeginSteps(bool turns, std::string_view values, XPObjAnimNode& node) {
    ValueText text(values);
    XPObjKeyStep& step = node.keySteps.emplace_back();
    step.turns = turns;
    step.stepsBefore = node.steps.size();
    if (turns)
        step.axis = ThreeNumbers(text);
    step.dataref = text.Word();
    open = true;
}

void FullLines::AddKey(bool turns, std::string_view values, XPObjAnimNode& node) {
    if (!open || node.keySteps.back().turns != turns)
        return;
    ValueText text(values);
    XPObjKey& key = node.keySteps.back().keys.emplace_back();
    key.value = text.Number();
    if (turns)
        key.degrees = text.Number();
    else
        key.shift = ThreeNumbers(text);
}

} // namespace CockpitModel
