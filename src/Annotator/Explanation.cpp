#include "Annotator/Explanation.h"

#include "CockpitModel/PartTransformCalculator.h"
#include "CockpitModel/Touch/InteractionDetector.h"
#include "CockpitModel/XPlane/XPObjData.h"
#include "Utils/Text.h"

#include <algorithm>
#include <boost/algorithm/string/join.hpp>
#include <cmath>
#include <cstdio>
#include <vector>

namespace Annotator {

namespace {

using CockpitModel::DetectionDecision;
using CockpitModel::DetectionRule;
using CockpitModel::InteractionDetector;
using CockpitModel::Manipulator;
using CockpitModel::ManipulatorRule;
using CockpitModel::ModelAnimation;
using CockpitModel::Node;
using CockpitModel::NodePart;
using CockpitModel::Reading;
using CockpitModel::SceneGraph;
using CockpitModel::TouchInteractionType;

constexpr std::size_t kMostCandidates = 10; ///< for the primary yoke, to list
/// A smaller value is a zero with a rounding error.
constexpr float kNothing = 1e-6f;

std::string FormatNumber(float number, int digits = 6) {
    char text[32];
    std::snprintf(text, sizeof text, "%.*g", digits, static_cast<double>(std::fabs(number) < kNothing ? 0 : number));
    return text;
}

std::string TriangleCount(const NodePart& part) {
    return Utils::Counted(part.vertices.size() / 3, "triangle");
}

std::string Id(const NodePart& part) {
    return std::to_string(part.node->index) + "," + std::to_string(part.id);
}

/// With enough digits to show that the value is above the limit.
std::string AboveText(const char* measure, float value, float limit) {
    constexpr int allDigits = 9;
    const std::string shown =
        FormatNumber(value) == FormatNumber(limit) ? FormatNumber(value, allDigits) : FormatNumber(value);
    return std::string(measure) + " " + shown + " is above " + FormatNumber(limit) + ", so Move, not Twist";
}

std::string TwistText(const NodePart& part) {
    const std::string balance = "BalanceFactor " + FormatNumber(part.BalanceFactor) + " is not above " +
                                FormatNumber(CockpitModel::kBalancedTwist);
    if (!part.node->animation)
        return "its node has no animation and " + balance + ", so Twist";
    return "it rotates, " + balance + " and SweepRadius " + FormatNumber(part.SweepRadius) + " is not above " +
           FormatNumber(CockpitModel::kTwistRadius) + ", so Twist";
}

std::string TwistChangeText(const NodePart& part) {
    if (!part.node->animation)
        return "an animation block of its own that does not rotate makes it Move";
    return "a SweepRadius above " + FormatNumber(CockpitModel::kTwistRadius) + ", a BalanceFactor above " +
           FormatNumber(CockpitModel::kBalancedTwist) + " or an animation that does not rotate makes it Move";
}

/// The next rule after the deciding one also prevents Twist.
std::string WideToo(const NodePart& part) {
    if (!part.node->animation || !(part.SweepRadius > CockpitModel::kTwistRadius))
        return {};
    return ", if its SweepRadius is also reduced to " + FormatNumber(CockpitModel::kTwistRadius);
}

std::vector<const NodePart*> YokeCandidates(const SceneGraph& sceneGraph) {
    std::vector<const NodePart*> candidates;
    for (const auto& node : sceneGraph.Nodes())
        for (const auto& part : node->parts)
            if (IsYoke(part->InteractionType))
                candidates.push_back(part.get());
    const InteractionDetector detector;
    std::ranges::stable_sort(candidates, std::ranges::greater(),
                             [&](const NodePart* part) { return detector.YokeScore(*part); });
    return candidates;
}

Reading ReadingOf(const NodePart& part) {
    return part.node->graph->Model().reading;
}

/// `none` is what makes it no yoke.
std::string YokeChangeText(const NodePart& part, const std::string& none) {
    const std::vector<const NodePart*> candidates = YokeCandidates(*part.node->graph);
    const auto rival = std::ranges::find_if(candidates, [&](const NodePart* other) { return other != &part; });
    if (rival == candidates.end())
        return none;
    const std::string score = FormatNumber(InteractionDetector().YokeScore(**rival)) + ", that of part " + Id(**rival);
    if (part.InteractionType == TouchInteractionType::YokePrimary)
        return none + "; a score below " + score + ", makes it YokePart";
    return none + "; a score above " + score + ", makes it YokePrimary";
}

struct RuleTexts {
    std::string why, change;
};

std::string WithoutText(const NodePart& part) {
    return part.manipulator ? "it has no manipulator that is touched" : "it has no manipulator";
}

/// A part without a manipulator that is not a yoke may be below only one of a yoke's two animations.
RuleTexts NoRectangleTexts(const NodePart& part) {
    const Reading reading = ReadingOf(part);
    bool roll = false, pitch = false;
    for (const Node* node = part.node; node; node = node->parent) {
        if (!node->animation || (reading == Reading::Full && node->animation->outsideBlocks))
            continue;
        roll |= CockpitModel::IsYokeRollName(node->animation->name, reading);
        pitch |= CockpitModel::IsYokePitchName(node->animation->name, reading);
    }
    const std::string manipulator =
        reading == Reading::Full
            ? "a manipulator before its TRIS, whose keyword and cursor decide the type"
            : "a manipulator before its TRIS: ATTR_manip_toggle makes it Tap, ATTR_manip_drag_axis Twist or Move";
    if (!roll && !pitch)
        return {WithoutText(part) + " and no yoke animation at or above it, so None", manipulator};
    return {WithoutText(part) + " and only the " + (roll ? "roll" : "pitch") +
                " animation of a yoke at or above it, so None",
            manipulator + "; an animation with sim/cockpit2/controls/yoke_" + (roll ? "pitch" : "roll") +
                "_ratio at or above it makes it a yoke"};
}

std::string Keyword(const Manipulator& manipulator) {
    return "ATTR_manip_" + manipulator.keyword;
}

std::string NamesText(const Manipulator& manipulator) {
    return manipulator.names.empty() ? "no dataref" : boost::algorithm::join(manipulator.names, " and ");
}

constexpr const char* kYokeNames = "the roll and the pitch of a yoke";

RuleTexts StraightTexts(const Manipulator& manipulator, const char* kind) {
    const std::string cursor = manipulator.cursor.empty()
                                   ? "it has no cursor"
                                   : "its cursor " + manipulator.cursor + " does not begin with rotate";
    return {Keyword(manipulator) + " is " + kind + " and " + cursor + ", so Move",
            "a cursor that begins with rotate makes it Twist; ATTR_manip_push or ATTR_manip_command makes it Tap"};
}

RuleTexts ManipulatorTexts(ManipulatorRule rule, const NodePart& part) {
    const Manipulator& manipulator = *part.manipulator;
    const std::string keyword = Keyword(manipulator);
    switch (rule) {
    case ManipulatorRule::Untouched:
        return {};
    case ManipulatorRule::YokeDrag:
        return {keyword + " drags " + NamesText(manipulator) + ", " + kYokeNames + ", so a yoke",
                YokeChangeText(part, "with other datarefs it is Move")};
    case ManipulatorRule::DragXY:
        return {keyword + " drags " + NamesText(manipulator) + ", which are not " + kYokeNames + ", so Move",
                std::string(kYokeNames) + " as its two datarefs make it a yoke"};
    case ManipulatorRule::Button:
        return {keyword + " is a button, so Tap", "the keyword of a knob makes it Twist, that of a switch or a drag "
                                                  "Move, or Twist if its cursor begins with rotate"};
    case ManipulatorRule::Knob:
        return {keyword + " is a knob, so Twist", "the keyword of a button makes it Tap, that of a switch or a drag "
                                                  "Move, if its cursor does not begin with rotate"};
    case ManipulatorRule::RotateCursor:
        return {keyword + " has the cursor " + manipulator.cursor + ", which begins with rotate, so Twist",
                "a cursor that does not begin with rotate makes it Move"};
    case ManipulatorRule::Switch:
        return StraightTexts(manipulator, "a switch");
    case ManipulatorRule::Drag:
        return StraightTexts(manipulator, "a drag");
    case ManipulatorRule::CommandAxis:
        return StraightTexts(manipulator, "a pull along an axis");
    }
    return {};
}

RuleTexts TextsOf(const DetectionDecision& decision, const NodePart& part) {
    switch (decision.rule) {
    case DetectionRule::NoRectangle:
        return NoRectangleTexts(part);
    case DetectionRule::YokeAnimations:
        return {WithoutText(part) + ", but roll and pitch animations of a yoke at or above it, so a yoke",
                YokeChangeText(part, "with a manipulator before its TRIS it is not a yoke")};
    case DetectionRule::FiresEvent:
        return {"its manipulator fires an event when clicked, so Tap",
                "ATTR_manip_drag_axis instead of its toggle makes it Twist or Move"};
    case DetectionRule::NoCallback:
        return {"its rectangle does nothing when clicked, so None",
                "a rectangle that fires an event makes it Tap, a rectangle that sets a value makes it Twist or Move"};
    case DetectionRule::NoTurn:
        return {"it is dragged, and the animation of its node does not rotate, so Move, not Twist",
                "an ANIM_rotate as the last step of its block makes it Twist, if the part is centred on the axis and "
                "near it"};
    case DetectionRule::Unbalanced:
        return {AboveText("BalanceFactor", part.BalanceFactor, CockpitModel::kBalancedTwist),
                "a node origin at the centre of the part, so that its corners are distributed evenly around the axis, "
                "makes it Twist" +
                    WideToo(part)};
    case DetectionRule::WideSweep:
        return {AboveText("SweepRadius", part.SweepRadius, CockpitModel::kTwistRadius),
                "a part that stays within " + FormatNumber(CockpitModel::kTwistRadius) +
                    " m of its axis, or a node origin nearer to it, makes it Twist"};
    case DetectionRule::Twist:
        return {TwistText(part), TwistChangeText(part)};
    case DetectionRule::Manipulator:
        return ManipulatorTexts(decision.manipulator, part);
    }
    return {};
}

/// In the format of compilers, so that editors can open the line.
std::string PlaceText(const NodePart& part, std::uint32_t line) {
    return part.node->graph->Model().objects.at(part.block.Object).path + ":" + std::to_string(line) + ": ";
}

std::string RectLineText(const NodePart& part) {
    return PlaceText(part, part.block.ManipulatorLine) + part.Rect()->Text + "\n";
}

std::string FullManipulatorText(const NodePart& part) {
    const Manipulator& manipulator = *part.manipulator;
    std::string text = "  manipulator: " + PlaceText(part, manipulator.line) + RectText(manipulator) + "\n";
    if (!manipulator.cursor.empty())
        text += "  cursor:      " + manipulator.cursor + "\n";
    if (!manipulator.tooltip.empty())
        text += "  tooltip:     " + manipulator.tooltip + "\n";
    return text;
}

std::string SourceText(const NodePart& part) {
    if (part.block.SourceLine == 0)
        return "  source:      a panel, not the cockpit object\n";
    std::string text = "  source:      " + PlaceText(part, part.block.SourceLine) + "TRIS\n";
    if (part.manipulator)
        text += FullManipulatorText(part);
    else if (part.Rect())
        text += "  manipulator: " + RectLineText(part);
    return text;
}

bool HasRotation(const ModelAnimation& animation) {
    return std::ranges::any_of(animation.tracks, [](const auto& track) {
        return std::ranges::any_of(track, [](const auto& key) { return !key.IsTranslation; });
    });
}

/// A long turn between two key frames takes several keys, and all of them count.
std::string KeyFrameText(const ModelAnimation& animation) {
    std::string text;
    if (animation.keyFramed)
        text += ", " + Utils::Counted(animation.tracks.at(0).size(), "key");
    if (animation.loop != 0)
        text += ", loop of " + FormatNumber(animation.loop);
    if (animation.outsideBlocks)
        text += ", outside all blocks";
    return text;
}

std::string AnimationText(const Node& node) {
    if (!node.animation)
        return "no animation";
    if (node.animation->name == CockpitModel::kDummyAnimationName)
        return "a block without ANIM_trans or ANIM_rotate";
    if (CockpitModel::NamesNoDataref(node.animation->name))
        return (HasRotation(*node.animation) ? "a fixed rotation without a dataref"
                                             : "a fixed offset without a dataref") +
               KeyFrameText(*node.animation);
    return (HasRotation(*node.animation) ? "rotation by " : "translation by ") + node.animation->name + " from " +
           FormatNumber(node.animation->rangeLow) + " to " + FormatNumber(node.animation->rangeHigh) +
           KeyFrameText(*node.animation);
}

std::string ChainText(const NodePart& part) {
    std::string text;
    for (const Node* node = part.node; node; node = node->parent)
        text += "    node " + std::to_string(node->index) + ": " + AnimationText(*node) + "\n";
    return text;
}

/// The best candidates, and the part itself even if it is not among them.
std::string CandidatesText(const SceneGraph& sceneGraph, const NodePart& asked) {
    const InteractionDetector detector;
    const std::vector<const NodePart*> candidates = YokeCandidates(sceneGraph);
    std::string text = "  candidates for the primary yoke, by score (10 x SweepRadius - metres to the right):\n";
    for (std::size_t i = 0; i < candidates.size(); ++i) {
        const NodePart& part = *candidates[i];
        if (i < kMostCandidates || &part == &asked)
            text += "    " + FormatNumber(detector.YokeScore(part)) + "  part " + Id(part) +
                    (part.InteractionType == TouchInteractionType::YokePrimary ? ", the primary yoke" : "") + "\n";
    }
    if (candidates.size() > kMostCandidates)
        text += "    of " + std::to_string(candidates.size()) + " in total\n";
    return text;
}

} // namespace

std::string ExplanationText(const SceneGraph& sceneGraph, const NodePart& part) {
    const DetectionDecision decision = InteractionDetector().Explain(part, ReadingOf(part));
    const RuleTexts texts = TextsOf(decision, part);
    std::string text = "part " + Id(part) + " is " + TouchInteractionTypeToText(part.InteractionType) + "\n";
    text += "  because:     " + texts.why + "\n";
    text += SourceText(part);
    text += "  values:      BalanceFactor " + FormatNumber(part.BalanceFactor) + ", SweepRadius " +
            FormatNumber(part.SweepRadius) + " m, " + TriangleCount(part) + "\n";
    text += "  animations, from the part's node up to the root:\n" + ChainText(part);
    if (decision.type == TouchInteractionType::YokePart)
        text += CandidatesText(sceneGraph, part);
    return text + "  what would change it: " + texts.change + "\n";
}

std::string PlainReadingText(const NodePart* part) {
    if (!part)
        return "has no such part\n";
    const RuleTexts texts = TextsOf(InteractionDetector().Explain(*part), *part);
    std::string text = std::string(TouchInteractionTypeToText(part->InteractionType)) + "; " + texts.why + "\n";
    if (part->Rect())
        text += "    manipulator: " + RectLineText(*part);
    return text;
}

} // namespace Annotator
