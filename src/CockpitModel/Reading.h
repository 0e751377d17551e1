#pragma once

#include <cstdint>

namespace CockpitModel {

/// How much of an aircraft's cockpit is read.
enum class Reading : std::uint8_t {
    Plain, ///< the cockpit object, its toggle and drag_axis manipulators and its animations with two ends
    Full,  ///< also all other manipulators, key frames and the objects that the .acf attaches
};

} // namespace CockpitModel
