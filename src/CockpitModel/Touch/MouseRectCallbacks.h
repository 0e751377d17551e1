#pragma once

#include "CockpitModel/Touch/MouseRectCallbackTarget.h"

#include <cstdint>
#include <memory>
#include <ostream>
#include <string>
#include <utility>

namespace CockpitModel {

struct MouseRect;
struct NodePart;

/// Action of a rectangle on a mouse event. Destroyed only through a shared pointer created with the concrete type.
class MouseRectCallbackEvent {
public:
    virtual void Dump(std::ostream& stream, const std::string& prefix) const = 0;
    virtual void Fire(MouseRectCallbackTarget& target, const MouseRect& rect, MouseEventKind kind) const = 0;

protected:
    ~MouseRectCallbackEvent() = default;
};

/// Action of a rectangle while it is dragged by hand or mouse. Destroyed only through a shared pointer created with the
/// concrete type.
class MouseRectCallbackVariable {
public:
    virtual void Dump(std::ostream& stream, const std::string& prefix) const = 0;
    /// `value` is 0 to 1 over the range of a variable, or the step of a drag; `part` is the touched part.
    virtual void Apply(MouseRectCallbackTarget& target, const MouseRect& rect, float value,
                       const NodePart& part) const = 0;

protected:
    ~MouseRectCallbackVariable() = default;
};

/// Runs code in the simulator's gauge expression language, with "(M:Event)" replaced by the mouse event.
class CallbackCode final : public MouseRectCallbackEvent {
public:
    void Dump(std::ostream& stream, const std::string& prefix) const override;
    void Fire(MouseRectCallbackTarget& target, const MouseRect& rect, MouseEventKind kind) const override;

    std::string Code;
};

/// Sends a numbered simulator event.
class CallbackEventID final : public MouseRectCallbackEvent {
public:
    void Dump(std::ostream& stream, const std::string& prefix) const override;
    void Fire(MouseRectCallbackTarget& target, const MouseRect& rect, MouseEventKind kind) const override;

    std::uint32_t EventID = 0;
};

/// The mouse function of a compiled gauge: it takes an argument block of 40 bytes and a mouse flag.
using GaugeMouseFunction = void (*)(void* arguments, std::uint32_t mouseFlag);

/// Calls a function of a compiled gauge, which defines the meaning of the arguments.
class CallbackFSFunc final : public MouseRectCallbackEvent {
public:
    void Dump(std::ostream& stream, const std::string& prefix) const override;
    void Fire(MouseRectCallbackTarget& target, const MouseRect& rect, MouseEventKind kind) const override;

    GaugeMouseFunction Func = nullptr;
    std::uint64_t ArgumentA = 0, ArgumentB = 0;
};

/// Flips an X-Plane dataref between two values.
class CallbackXPToggle final : public MouseRectCallbackEvent {
public:
    CallbackXPToggle(std::string var, float valA, float valB) : Var(std::move(var)), ValA(valA), ValB(valB) {}
    void Dump(std::ostream& stream, const std::string& prefix) const override;
    void Fire(MouseRectCallbackTarget& target, const MouseRect& rect, MouseEventKind kind) const override;

    std::string Var;
    float ValA, ValB;
};

/// Sets a simulator variable in percent.
class CallbackDraggingCode final : public MouseRectCallbackVariable {
public:
    void Dump(std::ostream& stream, const std::string& prefix) const override;
    void Apply(MouseRectCallbackTarget& target, const MouseRect& rect, float value,
               const NodePart& part) const override;

    std::string Code; ///< name of the variable
};

/// Converts a drag into steps of one of two event callbacks.
class CallbackJumpDragging final : public MouseRectCallbackVariable {
public:
    void Dump(std::ostream& stream, const std::string& prefix) const override;
    void Apply(MouseRectCallbackTarget& target, const MouseRect& rect, float value,
               const NodePart& part) const override;

    std::int32_t XDelta = 0, YDelta = 0;
    bool TwoCallbacks = false;
    std::shared_ptr<MouseRectCallbackEvent> PositiveCallback, NegativeCallback;
};

/// Moves an X-Plane dataref through a range.
class CallbackXPVariable final : public MouseRectCallbackVariable {
public:
    CallbackXPVariable(std::string var, float min, float max) : Var(std::move(var)), Min(min), Max(max) {}
    void Dump(std::ostream& stream, const std::string& prefix) const override;
    void Apply(MouseRectCallbackTarget& target, const MouseRect& rect, float value,
               const NodePart& part) const override;

    std::string Var;
    float Min, Max;
};

} // namespace CockpitModel
