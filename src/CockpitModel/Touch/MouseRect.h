#pragma once

#include "CockpitModel/Touch/MouseRectCallbacks.h"
#include "Utils/LinearAlgebra.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <ostream>
#include <string>

namespace CockpitModel {

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
    /// 0 nothing chosen, 1 fires EventCallback, 2 VariableCallback takes 0 to 1, 3 VariableCallback steps.
    std::uint32_t CallbackType = 0;
    std::shared_ptr<MouseRectCallbackEvent> EventCallback;
    std::shared_ptr<MouseRectCallbackVariable> VariableCallback;

    void Dump(std::ostream& stream, const std::string& prefix) const;
};

/// Turns a wheel-driven gauge element into a stepping control; leaves every other rectangle unchanged.
void ConvertWheelToJump(MouseRect& rect);

} // namespace CockpitModel
