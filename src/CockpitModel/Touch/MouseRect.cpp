#include "CockpitModel/Touch/MouseRect.h"

#include "CockpitModel/Touch/MouseFlags.h"

namespace CockpitModel {

namespace {

constexpr const char* kIndent = "    ";

bool TakesWheel(const MouseRect& rect) {
    constexpr std::uint32_t both = MouseFlag::WheelUp | MouseFlag::WheelDown;
    return rect.CallbackType == kFiresEvent && (rect.MouseFlags & both) == both && rect.EventCallback;
}

bool Contains(const std::string& text, const char* word) {
    return text.find(word) != std::string::npos;
}

/// A callback that is not gauge code may react to anything.
bool ReactsToWheel(const CallbackCode* code) {
    return !code || Contains(code->Code, "WheelUp") || Contains(code->Code, "WheelDown");
}

bool ReactsToClicks(const CallbackCode* code) {
    return !code || Contains(code->Code, "LeftSingle") || Contains(code->Code, "LeftRelease");
}

} // namespace

void MouseRect::Dump(std::ostream& stream, const std::string& prefix) const {
    const std::string inner = prefix + kIndent;
    stream << prefix << "MouseRect:\n"
           << inner << "Tooltip: " << Tooltip << '/' << TooltipID << '\n'
           << inner << "CursorID: " << CursorID << '\n'
           << inner << "HelpID: " << HelpID << '\n'
           << inner << "MouseFlags: " << MouseFlagsToText(DecodeMouseFlags(MouseFlags)) << '\n';
    if (DragVector)
        stream << inner << "DragVector: " << DragVector->x() << ", " << DragVector->y() << ", " << DragVector->z()
               << '\n';
    stream << inner << "CallbackType: " << CallbackType << '\n';
    if (EventCallback)
        EventCallback->Dump(stream, inner + kIndent);
    if (VariableCallback)
        VariableCallback->Dump(stream, inner + kIndent);
}

void ConvertWheelToJump(MouseRect& rect) {
    const auto* code = dynamic_cast<const CallbackCode*>(rect.EventCallback.get());
    if (!TakesWheel(rect) || !ReactsToWheel(code))
        return;
    auto jump = std::make_shared<CallbackJumpDragging>();
    jump->PositiveCallback = jump->NegativeCallback = rect.EventCallback;
    jump->XDelta = 1;
    rect.VariableCallback = jump;
    rect.CallbackType = kSteps;
    if (!ReactsToClicks(code))
        rect.EventCallback = nullptr;
}

} // namespace CockpitModel
