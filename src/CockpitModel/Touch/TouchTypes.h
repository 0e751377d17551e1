#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace CockpitModel {

/// How the user's hand operates a part.
enum class TouchInteractionType : std::uint32_t { None, Tap, Twist, Move, Radio, YokePart, YokePrimary };

constexpr bool IsYoke(TouchInteractionType type) {
    return type == TouchInteractionType::YokePart || type == TouchInteractionType::YokePrimary;
}

/// The mouse events for the two directions of a stepped control.
enum class TouchEventType : std::uint32_t { Wheel, LClickRClick, LClickLClick };

/// Exact and case-sensitive; "Push" is read as Tap. Any other word throws a plain std::exception, as does a value
/// outside the enumeration.
TouchInteractionType TouchInteractionTypeFromText(std::string_view text);
std::string TouchInteractionTypeToText(TouchInteractionType type);
TouchEventType TouchEventTypeFromText(std::string_view text);
std::string TouchEventTypeToText(TouchEventType type);

/// The types that the user may choose: all but the yoke types.
std::vector<TouchInteractionType> SelectableInteractionTypes();
std::vector<TouchEventType> SelectableEventTypes();

} // namespace CockpitModel
