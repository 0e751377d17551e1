#include "Annotator/Explanation.h"

#include "CockpitModel/Touch/InteractionDetector.h"

#include <algorithm>
#include <cstdio>
#include <vector>

namespace Annotator {

namespace {

using CockpitModel::DetectionRule;
using CockpitModel::InteractionDetector;
using CockpitModel::ModelAnimation;
using CockpitModel::Node;
using CockpitModel::NodePart;
using CockpitModel::SceneGraph;
using CockpitModel::TouchInteractionType;

std::string NumberText(float number) {
    char text[32];
    std::snprintf(text, sizeof text, "%.6g", static_cast<double>(number));
    return text;
}

std::string Id(const NodePart& part) {
    return std::to_string(part.node->index) + "," + std::to_string(part.id);
}

std::string AboveText(const char* measure, float value, float limit) {
    return std::string(measure) + " " + NumberText(value) + " is above " + NumberText(limit) + ", so Move, not Twist";
}

std::string TwistText(const NodePart& part) {
    const std::string balance =
        "BalanceFactor " + NumberText(part.BalanceFactor) + " is not above " + NumberText(CockpitModel::kBalancedTwist);
    if (!part.node->animation)
        return "its node has no animation, and " + balance + ", so Twist";
    return "it turns, " + balance + " and SweepRadius " + NumberText(part.SweepRadius) + " is not above " +
           NumberText(CockpitModel::kTwistRadius) + ", so Twist";
}

std::string TwistChangeText(const NodePart& part) {
    if (!part.node->animation)
        return "an animation block of its own; in one that does not turn it is Move";
    return "a SweepRadius above " + NumberText(CockpitModel::kTwistRadius) + ", a BalanceFactor above " +
           NumberText(CockpitModel::kBalancedTwist) + " or an animation that does not turn makes it Move";
}

struct RuleTexts {
    std::string why, change;
};

RuleTexts TextsOf(DetectionRule rule, const NodePart& part) {
    switch (rule) {
    case DetectionRule::NoRectangle:
        return {"it has no manipulator, and no animations of a yoke's roll and pitch at or above it, so None",
                "a manipulator ahead of its TRIS: ATTR_manip_toggle makes it Tap, ATTR_manip_drag_axis Twist or Move"};
    case DetectionRule::YokeAnimations:
        return {"it has no manipulator, and animations of a yoke's roll and pitch at or above it, so a yoke",
                "a manipulator ahead of its TRIS makes it no yoke; the greatest score is the primary yoke"};
    case DetectionRule::FiresEvent:
        return {"its manipulator fires an event when clicked, so Tap",
                "ATTR_manip_drag_axis in the place of its toggle makes it Twist or Move"};
    case DetectionRule::NoCallback:
        return {"its rectangle does nothing when clicked, so None", "a rectangle that fires an event or takes a value"};
    case DetectionRule::NoTurn:
        return {"it is dragged, and the animation of its own node never turns, so Move, not Twist",
                "an ANIM_rotate as the last step of its block, with the part balanced on its axis and near it"};
    case DetectionRule::Unbalanced:
        return {AboveText("BalanceFactor", part.BalanceFactor, CockpitModel::kBalancedTwist),
                "an origin of its node in the middle of the part, so that its corners lie evenly about the axis"};
    case DetectionRule::WideSweep:
        return {AboveText("SweepRadius", part.SweepRadius, CockpitModel::kTwistRadius),
                "a part that stays within " + NumberText(CockpitModel::kTwistRadius) +
                    " m of its axis, or an origin of its node that is nearer"};
    case DetectionRule::Twist:
        return {TwistText(part), TwistChangeText(part)};
    }
    return {};
}

std::string SourceText(const NodePart& part) {
    if (part.block.SourceLine == 0)
        return "from a panel, not from the cockpit object";
    std::string text = "TRIS in line " + std::to_string(part.block.SourceLine);
    if (part.Rect())
        text += ", manipulator in line " + std::to_string(part.block.ManipulatorLine) + " (" + part.Rect()->Text + ")";
    return text + " of " + part.node->graph->Model().sourcePath;
}

bool HoldsTurn(const ModelAnimation& animation) {
    return std::ranges::any_of(animation.tracks, [](const auto& track) {
        return std::ranges::any_of(track, [](const auto& key) { return !key.IsTranslation; });
    });
}

std::string AnimationText(const Node& node) {
    if (!node.animation)
        return "no animation";
    if (node.animation->name == CockpitModel::kDummyAnimationName)
        return "a block without ANIM_trans or ANIM_rotate";
    if (node.animation->name.empty() || node.animation->name == "none")
        return HoldsTurn(*node.animation) ? "a fixed turn, by no dataref" : "a fixed offset, by no dataref";
    return (HoldsTurn(*node.animation) ? "rotation by " : "translation by ") + node.animation->name + " from " +
           NumberText(node.animation->rangeLow) + " to " + NumberText(node.animation->rangeHigh);
}

std::string ChainText(const NodePart& part) {
    std::string text;
    for (const Node* node = part.node; node; node = node->parent)
        text += "    node " + std::to_string(node->index) + ": " + AnimationText(*node) + "\n";
    return text;
}

bool IsYoke(const NodePart& part) {
    return part.InteractionType == TouchInteractionType::YokePart ||
           part.InteractionType == TouchInteractionType::YokePrimary;
}

std::string CandidatesText(const SceneGraph& sceneGraph) {
    std::vector<const NodePart*> candidates;
    for (const auto& node : sceneGraph.Nodes())
        for (const auto& part : node->parts)
            if (IsYoke(*part))
                candidates.push_back(part.get());
    const InteractionDetector detector;
    std::ranges::stable_sort(candidates, std::ranges::greater(),
                             [&](const NodePart* part) { return detector.YokeScore(*part); });
    std::string text =
        "  candidates for the primary yoke, by score (10 times SweepRadius, less the place to the right):\n";
    for (const NodePart* part : candidates)
        text += "    " + NumberText(detector.YokeScore(*part)) + "  part " + Id(*part) +
                (part->InteractionType == TouchInteractionType::YokePrimary ? ", the primary yoke" : "") + "\n";
    return text;
}

} // namespace

std::string ExplanationText(const SceneGraph& sceneGraph, const NodePart& part) {
    const RuleTexts texts = TextsOf(InteractionDetector().Explain(part).rule, part);
    std::string text = "part " + Id(part) + " is " + TouchInteractionTypeToText(part.InteractionType) + "\n";
    text += "  because: " + texts.why + "\n";
    text += "  source:  " + SourceText(part) + "\n";
    text += "  figures: BalanceFactor " + NumberText(part.BalanceFactor) + ", SweepRadius " +
            NumberText(part.SweepRadius) + " m, " + std::to_string(part.vertices.size() / 3) + " triangles\n";
    text += "  animations, from the part's own up to the root:\n" + ChainText(part);
    if (IsYoke(part))
        text += CandidatesText(sceneGraph);
    return text + "  what would change it: " + texts.change + "\n";
}

} // namespace Annotator
