#include "CockpitModel/Touch/MouseRectCallbacks.h"

#include "CockpitModel/NodePart.h"
#include "CockpitModel/Touch/MouseFlags.h"
#include "CockpitModel/Touch/MouseRect.h"

#include <array>
#include <boost/algorithm/string/replace.hpp>
#include <cmath>

namespace CockpitModel {

namespace {

constexpr const char* kIndent = "    ";
/// Placeholder for the mouse event in a gauge's code.
constexpr const char* kEventToken = "(M:Event)";

/// The flags of an event's steps, in order; 0 for none.
std::array<std::uint32_t, 2> StepsOf(MouseEventKind kind) {
    switch (kind) {
    case MouseEventKind::LeftClick:
        return {MouseFlag::LeftSingle, MouseFlag::LeftRelease};
    case MouseEventKind::RightClick:
        return {MouseFlag::RightSingle, MouseFlag::RightRelease};
    case MouseEventKind::LeftPress:
        return {MouseFlag::LeftSingle};
    case MouseEventKind::LeftRelease:
        return {MouseFlag::LeftRelease};
    case MouseEventKind::WheelUp:
        return {MouseFlag::WheelUp};
    case MouseEventKind::WheelDown:
        return {MouseFlag::WheelDown};
    }
    return {};
}

/// Runs a function for each step of an event that the rectangle accepts.
template <typename Run>
void ForEachStep(const MouseRect& rect, MouseEventKind kind, Run run) {
    for (const std::uint32_t flag : StepsOf(kind))
        if (rect.MouseFlags & flag)
            run(flag);
}

/// The argument block of a compiled gauge's mouse function, which uses only these two words.
struct GaugeArguments {
    std::uint64_t unused0 = 0;
    std::uint64_t argumentB = 0;
    std::uint64_t argumentA = 0;
    std::uint64_t unused3 = 0, unused4 = 0;
};
static_assert(sizeof(GaugeArguments) == 40);

/// Truncated towards zero; 0 for NaN and values out of range.
std::int64_t ToPercent(float value) {
    const float percent = value * 100.0f;
    return std::abs(percent) < 1e18f ? static_cast<std::int64_t>(percent) : 0;
}

struct StepKinds {
    MouseEventKind positive, negative;
};

StepKinds StepKindsOf(TouchEventType type) {
    switch (type) {
    case TouchEventType::LClickRClick:
        return {MouseEventKind::LeftClick, MouseEventKind::RightClick};
    case TouchEventType::LClickLClick:
        return {MouseEventKind::LeftClick, MouseEventKind::LeftClick};
    default:
        return {MouseEventKind::WheelUp, MouseEventKind::WheelDown};
    }
}

} // namespace

void CallbackCode::Dump(std::ostream& stream, const std::string& prefix) const {
    stream << prefix << "CallbackCode:\n" << prefix << kIndent << "Code: " << Code << '\n';
}

void CallbackCode::Fire(MouseRectCallbackTarget& target, const MouseRect& rect, MouseEventKind kind) const {
    // Gauge code treats every event of unknown kind as a wheel step.
    const MouseEventKind known = StepsOf(kind)[0] ? kind : MouseEventKind::WheelDown;
    ForEachStep(rect, known, [&](std::uint32_t flag) {
        const std::string event = MouseFlagsToText(DecodeMouseFlags(flag));
        target.RunCode(boost::replace_all_copy(Code, kEventToken, '\'' + event + '\''));
    });
}

void CallbackEventID::Dump(std::ostream& stream, const std::string& prefix) const {
    stream << prefix << "CallbackEventID: " << EventID << '\n';
}

void CallbackEventID::Fire(MouseRectCallbackTarget& target, const MouseRect&, MouseEventKind) const {
    target.SendEvent(EventID, 0);
}

void CallbackFSFunc::Dump(std::ostream& stream, const std::string& prefix) const {
    // The spelling of the heading is fixed.
    stream << prefix << "CallbackFSunc:\n"
           << prefix << kIndent << "Func: " << reinterpret_cast<const void*>(Func) << '\n';
}

void CallbackFSFunc::Fire(MouseRectCallbackTarget&, const MouseRect& rect, MouseEventKind kind) const {
    if (!Func)
        return;
    ForEachStep(rect, kind, [&](std::uint32_t flag) {
        GaugeArguments arguments{.argumentB = ArgumentB, .argumentA = ArgumentA};
        Func(&arguments, flag);
    });
}

void CallbackXPToggle::Dump(std::ostream& stream, const std::string& prefix) const {
    stream << prefix << "CallbackXPToggle:\n"
           << prefix << kIndent << "Var: " << Var << '\n'
           << prefix << kIndent << "ValA: " << ValA << '\n'
           << prefix << kIndent << "ValB: " << ValB << '\n';
}

void CallbackXPToggle::Fire(MouseRectCallbackTarget& target, const MouseRect&, MouseEventKind) const {
    target.ToggleVariable(Var, ValA, ValB);
}

void CallbackDraggingCode::Dump(std::ostream&, const std::string&) const {}

void CallbackDraggingCode::Apply(MouseRectCallbackTarget& target, const MouseRect&, float value,
                                 const NodePart&) const {
    target.RunCode(std::to_string(ToPercent(value)) + " (>" + Code + ",percent)");
}

void CallbackJumpDragging::Dump(std::ostream& stream, const std::string& prefix) const {
    stream << prefix << "CallbackJumpDragging:\n"
           << prefix << kIndent << "XDelta: " << XDelta << '\n'
           << prefix << kIndent << "YDelta: " << YDelta << '\n';
    if (PositiveCallback)
        PositiveCallback->Dump(stream, prefix + kIndent);
}

void CallbackJumpDragging::Apply(MouseRectCallbackTarget& target, const MouseRect& rect, float value,
                                 const NodePart& part) const {
    const bool backwards = XDelta < 0 || YDelta < 0;
    const float step = backwards != part.Reverse ? -value : value;
    const StepKinds kinds = StepKindsOf(part.EventType);
    if (const auto& callback = step < 0.0f ? NegativeCallback : PositiveCallback)
        callback->Fire(target, rect, step < 0.0f ? kinds.negative : kinds.positive);
}

void CallbackXPVariable::Dump(std::ostream& stream, const std::string& prefix) const {
    stream << prefix << "CallbackXPVariable:\n"
           << prefix << kIndent << "Var: " << Var << '\n'
           << prefix << kIndent << "Min: " << Min << '\n'
           << prefix << kIndent << "Max: " << Max << '\n';
}

void CallbackXPVariable::Apply(MouseRectCallbackTarget& target, const MouseRect&, float value, const NodePart&) const {
    target.SetVariable(Var, Min + (Max - Min) * value);
}

} // namespace CockpitModel
