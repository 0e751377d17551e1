#pragma once

#include "CockpitModel/Touch/MouseRectCallbacks.h"
#include "Utils/LinearAlgebra.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <ostream>
#include <string>

namespace CockpitModel {

/// What drives a rectangle: the values of MouseRect::CallbackType.
enum MouseCallbackType : std::uint32_t {
    kNoCallback = 0,
    kFiresEvent = 1, ///< EventCallback
    kTakesValue = 2, ///< VariableCallback takes 0 to 1
    kSteps = 3,      ///< VariableCallback steps
};

/// How a part of the cockpit reacts to the mouse in the simulator. A part is clickable only if it has one. Held by
/// shared pointers; a copy shares the two callbacks.
struct MouseRect {
    std::string Text; ///< the source of the rectangle, for the user
    std::int32_t TooltipID = 0;
    std::string Tooltip;
    std::uint32_t CursorID = 0;
    std::uint32_t HelpID = 0;
    std::uint32_t MouseFlags = 0; ///< bits of MouseFlag
    std::optional<Utils::Vector3> DragVector;
    std::uint32_t CallbackType = kNoCallback; ///< a MouseCallbackType
    std::shared_ptr<MouseRectCallbackEvent> EventCallback;
    std::shared_ptr<MouseRectCallbackVariable> VariableCallback;

    void Dump(std::ostream& stream, const std::string& prefix) const;
};

/// Turns a wheel-driven gauge element into a stepping control; leaves every other rectangle unchanged.
void ConvertWheelToJump(MouseRect& rect);

} // namespace CockpitModel
