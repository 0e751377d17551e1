#pragma once

#include "CockpitModel/Touch/MouseRect.h"
#include "CockpitModel/Touch/TouchTypes.h"

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace CockpitModel {

/// Manipulator keywords that a hand works alike.
enum class ManipulatorFamily : std::uint8_t { Untouched, Button, Knob, Switch, Drag, CommandAxis, DragXY };

/// What a manipulator's line does to the manipulator in force in the plain reading.
enum class PlainEffect : std::uint8_t { Leaves, Clears, SetsToggle, SetsDrag };

inline bool SetsPlain(PlainEffect effect) {
    return effect == PlainEffect::SetsToggle || effect == PlainEffect::SetsDrag;
}

/// A manipulator as the object's text gives it.
struct Manipulator {
    std::string keyword; ///< without "ATTR_manip_"
    ManipulatorFamily family = ManipulatorFamily::Untouched;
    PlainEffect plain = PlainEffect::Leaves;
    std::string cursor;
    std::vector<float> numbers;     ///< in the order of the line
    std::vector<std::string> names; ///< datarefs or commands; without placeholders for no dataref
    std::string tooltip;
    std::int32_t rangeAt = -1;  ///< place in `numbers` of the first dataref's range of values; -1 if it has none
    std::int32_t firstName = 0; ///< number of names on the line before names.front()
    std::uint32_t line = 0;     ///< in its object, from 1

    /// The two values of names.front(); empty if the keyword gives it none.
    std::optional<std::pair<float, float>> Range() const;
};

/// The line of the table of types that decides, in the order in which they are tried.
enum class ManipulatorRule : std::uint8_t {
    Untouched,    ///< none, noop
    YokeDrag,     ///< drag_xy on roll and pitch
    DragXY,       ///< any other drag_xy
    Button,       ///< push, radio, command, toggle, delta, wrap, device
    Knob,         ///< the knobs
    RotateCursor, ///< a switch or a drag whose cursor begins with "rotate"
    Switch,       ///< the switches
    Drag,         ///< drag_axis, drag_axis_pix, drag_rotate
    CommandAxis,  ///< command_axis
};

struct ManipulatorDecision {
    TouchInteractionType type = TouchInteractionType::None; ///< YokePart for every candidate for the primary yoke
    TouchEventType event = TouchEventType::Wheel;
    MouseCallbackType callback = kNoCallback;
    ManipulatorRule rule = ManipulatorRule::Untouched;
};

ManipulatorDecision DecideManipulator(const Manipulator& manipulator);

/// The text of its mouse rectangle: "<keyword>: <numbers> -- <names>", both separated by " , ".
std::string RectText(const Manipulator& manipulator);

} // namespace CockpitModel
