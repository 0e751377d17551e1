#include "CockpitModel/Touch/Manipulator.h"

#include "CockpitModel/PartTransformCalculator.h"

#include <algorithm>
#include <charconv>
#include <iterator>
#include <string_view>

namespace CockpitModel {

namespace {

using Family = ManipulatorFamily;
using Rule = ManipulatorRule;
using Type = TouchInteractionType;

bool MovesYoke(const Manipulator& manipulator) {
    const auto& names = manipulator.names;
    return std::ranges::any_of(names, [](const auto& name) { return IsYokeRollName(name, Reading::Full); }) &&
           std::ranges::any_of(names, [](const auto& name) { return IsYokePitchName(name, Reading::Full); });
}

/// A line of the table for a family.
struct FamilyRow {
    Family family;
    Rule rule;
    Type type;
    MouseCallbackType callback;
};

constexpr FamilyRow kFamilies[] = {
    {Family::Untouched, Rule::Untouched, Type::None, kNoCallback},
    {Family::DragXY, Rule::DragXY, Type::Move, kTakesValue},
    {Family::Button, Rule::Button, Type::Tap, kFiresEvent},
    {Family::Knob, Rule::Knob, Type::Twist, kSteps},
    {Family::Switch, Rule::Switch, Type::Move, kSteps},
    {Family::Drag, Rule::Drag, Type::Move, kTakesValue},
    {Family::CommandAxis, Rule::CommandAxis, Type::Move, kSteps},
};

/// The cursor shows the mechanism to the user, so it decides between keywords that serve both.
bool IsTurnedByCursor(const Manipulator& manipulator) {
    const Family family = manipulator.family;
    return (family == Family::Switch || family == Family::Drag || family == Family::CommandAxis) &&
           manipulator.cursor.starts_with("rotate");
}

/// A step of commands takes a click, a step of a dataref the wheel.
TouchEventType EventOf(const Manipulator& manipulator, MouseCallbackType callback) {
    return callback == kSteps && manipulator.keyword.starts_with("command") ? TouchEventType::LClickLClick
                                                                            : TouchEventType::Wheel;
}

constexpr const char* kSeparator = " , ";

/// In the default format of streams, which take ten times as long to set up.
void AppendNumber(std::string& text, float number) {
    constexpr int significantDigits = 6;
    char digits[32];
    const std::to_chars_result end =
        std::to_chars(std::begin(digits), std::end(digits), number, std::chars_format::general, significantDigits);
    text.append(digits, end.ptr);
}

} // namespace

std::optional<std::pair<float, float>> Manipulator::Range() const {
    if (rangeAt < 0)
        return std::nullopt;
    const auto at = static_cast<std::size_t>(rangeAt + 2 * firstName);
    return std::pair(numbers.at(at), numbers.at(at + 1));
}

ManipulatorDecision DecideManipulator(const Manipulator& manipulator) {
    if (manipulator.family == Family::DragXY && MovesYoke(manipulator))
        return {Type::YokePart, TouchEventType::Wheel, kNoCallback, Rule::YokeDrag};
    const FamilyRow& row = *std::ranges::find(kFamilies, manipulator.family, &FamilyRow::family);
    const TouchEventType event = EventOf(manipulator, row.callback);
    if (IsTurnedByCursor(manipulator))
        return {Type::Twist, event, row.callback, Rule::RotateCursor};
    return {row.type, event, row.callback, row.rule};
}

std::string RectText(const Manipulator& manipulator) {
    std::string text = manipulator.keyword + ": ";
    for (std::size_t i = 0; i < manipulator.numbers.size(); ++i) {
        text += i == 0 ? "" : kSeparator;
        AppendNumber(text, manipulator.numbers[i]);
    }
    text += " -- ";
    for (std::size_t i = 0; i < manipulator.names.size(); ++i)
        text += (i == 0 ? "" : kSeparator) + manipulator.names[i];
    return text;
}

} // namespace CockpitModel
