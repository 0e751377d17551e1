#include "Annotator/VrConfigKnobs.h"

#include "CockpitModel/Node.h"
#include "CockpitModel/Touch/Manipulator.h"
#include "CockpitModel/Turning.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <optional>
#include <string_view>

namespace Annotator {

namespace {

using CockpitModel::Manipulator;
using CockpitModel::ManipulatorFamily;
using CockpitModel::Node;
using CockpitModel::NodePart;
using CockpitModel::Turning;

constexpr float kGuessedDegrees = 15;
constexpr float kStepsOfRange = 20; ///< of a drag, which has no steps of its own
constexpr double kThousandths = 1000;

/// A keyword that moves its dataref by steps, and the place of the step among its numbers.
struct StepPlace {
    std::string_view keyword;
    std::size_t number;
};
constexpr StepPlace kSteps[] = {
    {"axis_knob", 2}, {"axis_switch_left_right", 2}, {"axis_switch_up_down", 2}, {"drag_axis_pix", 1}, {"delta", 0},
    {"wrap", 0},
};

std::optional<float> OwnStep(const Manipulator& manipulator) {
    const auto* const row = std::ranges::find(kSteps, manipulator.keyword, &StepPlace::keyword);
    if (row == std::end(kSteps) || row->number >= manipulator.numbers.size() || manipulator.numbers[row->number] == 0)
        return std::nullopt;
    return manipulator.numbers[row->number];
}

bool HasTwoPositions(const Manipulator& manipulator) {
    return manipulator.keyword == "toggle" || manipulator.keyword == "push";
}

/// Whether a hand turns the manipulator without an ACTION in place of it.
bool TurnsByItself(const Manipulator& manipulator) {
    switch (manipulator.family) {
    case ManipulatorFamily::Knob:
        return true;
    case ManipulatorFamily::Switch:
        return manipulator.cursor.starts_with("rotate");
    default:
        return manipulator.keyword == "drag_rotate";
    }
}

struct KnobAction {
    std::string text;          ///< the directive; empty if it has none
    std::optional<float> step; ///< of names.front()
    bool stepOfRange = false;  ///< the step is a part of the range, because the manipulator has none
};

KnobAction AxisKnob(const Manipulator& manipulator, const std::pair<float, float>& range) {
    const float width = range.second - range.first;
    const std::optional<float> own = OwnStep(manipulator);
    const float step = own ? *own : HasTwoPositions(manipulator) ? width : width / kStepsOfRange;
    return {"ACTION axis_knob " + VrConfigNumber(range.first) + " " + VrConfigNumber(range.second) + " " +
                VrConfigNumber(step) + " " + manipulator.names.front(),
            step, !own && !HasTwoPositions(manipulator)};
}

KnobAction CommandKnob(const Manipulator& manipulator) {
    if (manipulator.names.size() == 1)
        return {"ACTION command_knob2 " + manipulator.names.front(), {}};
    return {"ACTION command_knob " + manipulator.names[0] + " " + manipulator.names[1], {}};
}

/// Empty if no knob can do the work of the manipulator.
std::optional<KnobAction> ActionOf(const Manipulator& manipulator) {
    if (TurnsByItself(manipulator))
        return KnobAction{{}, OwnStep(manipulator)};
    const auto range = manipulator.Range();
    if (range && range->first != range->second && std::isfinite(range->second - range->first))
        return AxisKnob(manipulator, *range);
    if (!range && manipulator.keyword.starts_with("command"))
        return CommandKnob(manipulator);
    return std::nullopt;
}

/// The nearest rotation by a dataref at or above a part.
std::optional<Turning> TurningBy(const std::string& dataref, const NodePart& part) {
    for (const Node* node = part.node; node; node = node->parent)
        if (node->animation && node->animation->name == dataref)
            if (std::optional<Turning> turning = CockpitModel::FindTurning(*node->animation))
                return turning;
    return std::nullopt;
}

/// How far the part turns at a step, without a sign; 0 if that cannot be told.
float DegreesPerStep(const NodePart& part, std::optional<float> step) {
    const auto range = part.manipulator->Range();
    if (!step || !range || range->first == range->second)
        return 0;
    const std::optional<Turning> turning = TurningBy(part.manipulator->names.front(), part);
    if (!turning)
        return 0;
    const double from = range->first, to = range->second;
    const double degrees = (turning->DegreesAt(to) - turning->DegreesAt(from)) * double{*step} / (to - from);
    const auto rounded = static_cast<float>(std::round(std::abs(degrees) * kThousandths) / kThousandths);
    return std::isfinite(rounded) ? rounded : 0;
}

} // namespace

VrConfigLines KnobLines(const std::vector<const NodePart*>& parts) {
    VrConfigLines lines;
    const std::optional<KnobAction> action = ActionOf(*parts.front()->manipulator);
    if (!action)
        return lines;
    float degrees = 0;
    for (const NodePart* part : parts)
        if (degrees == 0)
            degrees = DegreesPerStep(*part, action->step);
    if (action->stepOfRange)
        lines.comments.push_back("The step is a twentieth of the range.");
    if (degrees == 0) {
        lines.guessed = true;
        degrees = kGuessedDegrees;
        lines.comments.push_back("DEG_PER_ACTION is a guess: the object does not tell how far a step turns it.");
    }
    if (!action->text.empty())
        lines.directives.push_back(action->text);
    lines.directives.push_back("DEG_PER_ACTION " + VrConfigNumber(degrees));
    return lines;
}

} // namespace Annotator
