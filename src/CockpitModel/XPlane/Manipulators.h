#pragma once

#include "CockpitModel/Touch/Manipulator.h"

#include <cstdint>
#include <span>
#include <string_view>

namespace CockpitModel {

/// A manipulator keyword of the format. Its line has a cursor, numbers, names and a tooltip, in this order.
struct ManipulatorKeyword {
    std::string_view name; ///< without "ATTR_manip_"
    ManipulatorFamily family = ManipulatorFamily::Untouched;
    std::uint8_t numbers = 0, names = 0;
    std::int8_t rangeAt = -1; ///< as in Manipulator
    PlainEffect plain = PlainEffect::Leaves;
    bool adds = false; ///< to the manipulator in force, which stays
};

std::span<const ManipulatorKeyword> ManipulatorKeywords();

inline constexpr std::string_view kManipulatorPrefix = "ATTR_manip_";

/// Null if the format has no such keyword. `name` is without the prefix.
const ManipulatorKeyword* FindManipulatorKeyword(std::string_view name);

/// Reads the values of a line. A number that cannot be read is 0; with too few values there are no names.
Manipulator ReadManipulator(const ManipulatorKeyword& keyword, std::string_view values, std::uint32_t line);

} // namespace CockpitModel
