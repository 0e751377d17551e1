#include "CockpitModel/XPlane/Manipulators.h"

#include "CockpitModel/XPlane/ValueText.h"
#include "CockpitModel/XPlane/XPObjData.h"

#include <algorithm>

namespace CockpitModel {

namespace {

using Family = ManipulatorFamily;
using enum PlainEffect;

/// More frequent ones first.
constexpr ManipulatorKeyword kKeywords[] = {
    {"none", Family::Untouched, 0, 0, -1, Clears},
    {"command", Family::Button, 0, 1, -1, Clears},
    {"toggle", Family::Button, 2, 1, 0, SetsToggle},
    {"push", Family::Button, 2, 1, 0},
    {"drag_axis", Family::Drag, 5, 1, 3, SetsDrag},
    {"command_knob", Family::Knob, 0, 2},
    {"axis_knob", Family::Knob, 4, 1, 0},
    {"command_axis", Family::CommandAxis, 3, 2, -1, Clears},
    {"command_switch_up_down", Family::Switch, 0, 2},
    {"command_switch_left_right", Family::Switch, 0, 2},
    {"delta", Family::Button, 4, 1, 2},
    {"drag_rotate", Family::Drag, 13, 2, 9},
    {"drag_xy", Family::DragXY, 6, 2, 2, Clears},
    {"command_switch_up_down2", Family::Switch, 0, 1},
    {"command_switch_left_right2", Family::Switch, 0, 1},
    {"command_knob2", Family::Knob, 0, 1},
    {"axis_switch_left_right", Family::Switch, 4, 1, 0},
    {"axis_switch_up_down", Family::Switch, 4, 1, 0},
    {"radio", Family::Button, 1, 1},
    {"drag_axis_pix", Family::Drag, 5, 1, 3},
    {"wrap", Family::Button, 4, 1, 2},
    {"noop", Family::Untouched},
    {"device", Family::Button},
    {.name = "wheel", .numbers = 1, .adds = true},
    {.name = "keyframe", .numbers = 2, .adds = true},
};

} // namespace

std::span<const ManipulatorKeyword> ManipulatorKeywords() {
    return kKeywords;
}

const ManipulatorKeyword* FindManipulatorKeyword(std::string_view name) {
    const auto* const found = std::ranges::find(kKeywords, name, &ManipulatorKeyword::name);
    return found == std::end(kKeywords) ? nullptr : found;
}

Manipulator ReadManipulator(const ManipulatorKeyword& keyword, std::string_view values, std::uint32_t line) {
    Manipulator manipulator;
    manipulator.keyword = keyword.name;
    manipulator.family = keyword.family;
    manipulator.plain = keyword.plain;
    manipulator.rangeAt = keyword.rangeAt;
    manipulator.line = line;
    ValueText text(values);
    if (keyword.names > 0)
        manipulator.cursor = text.Word();
    for (int i = 0; i < keyword.numbers; ++i)
        manipulator.numbers.push_back(text.Number());
    for (int i = 0; i < keyword.names; ++i)
        manipulator.names.emplace_back(text.Word());
    manipulator.tooltip = text.Rest();
    if (std::ranges::find(manipulator.names, "") != manipulator.names.end())
        manipulator.names.clear();
    while (manipulator.firstName < std::ssize(manipulator.names) &&
           NamesNoDataref(manipulator.names[static_cast<std::size_t>(manipulator.firstName)]))
        ++manipulator.firstName;
    std::erase_if(manipulator.names, [](const std::string& name) { return NamesNoDataref(name); });
    return manipulator;
}

} // namespace CockpitModel
