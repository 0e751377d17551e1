#pragma once

#include <cstdint>
#include <string>

namespace CockpitModel {

/// The named bits of a rectangle's mouse flags, as the simulator's gauges number them.
namespace MouseFlag {
inline constexpr std::uint32_t All = 0x00000400;
inline constexpr std::uint32_t Leave = 0x00000800;
inline constexpr std::uint32_t MoveRepeat = 0x00001000;
inline constexpr std::uint32_t WheelDown = 0x00002000;
inline constexpr std::uint32_t WheelUp = 0x00004000;
inline constexpr std::uint32_t WheelSkip = 0x00008000;
inline constexpr std::uint32_t WheelFlip = 0x00010000;
inline constexpr std::uint32_t LeftRelease = 0x00020000;
inline constexpr std::uint32_t MiddleRelease = 0x00040000;
inline constexpr std::uint32_t RightRelease = 0x00080000;
inline constexpr std::uint32_t DownRepeat = 0x00200000;
inline constexpr std::uint32_t Move = 0x00400000;
inline constexpr std::uint32_t LeftDrag = 0x00800000;
inline constexpr std::uint32_t MiddleDrag = 0x01000000;
inline constexpr std::uint32_t RightDrag = 0x02000000;
inline constexpr std::uint32_t LeftSingle = 0x20000000;
inline constexpr std::uint32_t MiddleSingle = 0x40000000;
inline constexpr std::uint32_t RightSingle = 0x80000000;
} // namespace MouseFlag

/// The flags one by one, in the order of their text.
struct MouseFlagSet {
    bool All = false, Leave = false, MoveRepeat = false, WheelDown = false, WheelUp = false, WheelSkip = false;
    bool WheelFlip = false, LeftRelease = false, MiddleRelease = false, RightRelease = false, DownRepeat = false;
    bool Move = false, LeftDrag = false, MiddleDrag = false, RightDrag = false;
    bool LeftSingle = false, MiddleSingle = false, RightSingle = false;
};

/// Bits without a name are dropped.
MouseFlagSet DecodeMouseFlags(std::uint32_t word);
/// The names of the set flags, joined by ","; "None" when no flag is set.
std::string MouseFlagsToText(const MouseFlagSet& flags);

} // namespace CockpitModel
