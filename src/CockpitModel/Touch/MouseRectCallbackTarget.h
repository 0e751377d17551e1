#pragma once

#include <cstdint>
#include <string>

namespace CockpitModel {

/// The mouse event passed to a callback. A click is a press followed by a release.
enum class MouseEventKind : std::uint32_t { LeftClick, WheelUp, WheelDown, LeftPress, LeftRelease, RightClick };

/// The interface on which callbacks act: the simulator, for a program that fires them. This program only describes
/// callbacks and implements no target.
class MouseRectCallbackTarget {
public:
    /// Entries of the table that no callback uses.
    virtual void Unused0() {}
    virtual void Unused1() {}
    virtual void Unused2() {}

    /// Evaluates code in the simulator's gauge expression language.
    virtual void RunCode(const std::string& code) = 0;
    virtual void SendEvent(std::uint32_t eventNumber, std::uint32_t parameter) = 0;
    /// Flips an X-Plane dataref between two values.
    virtual void ToggleVariable(const std::string& variable, float a, float b) = 0;
    /// Writes an X-Plane dataref.
    virtual void SetVariable(const std::string& variable, float value) = 0;

protected:
    ~MouseRectCallbackTarget() = default;
};

} // namespace CockpitModel
