#include "CockpitModel/Touch/InteractionDetector.h"

#include "CockpitModel/PartTransformCalculator.h"
#include "CockpitModel/SceneGraph.h"
#include "CockpitModel/Touch/MouseFlags.h"

#include <algorithm>
#include <array>
#include <optional>

namespace CockpitModel {

namespace {

constexpr float kWorstYokeScore = -1000000.0f;

/// Simulator variables of levers that are set in percent instead of stepped.
constexpr std::array<const char*, 3> kPercentLevers = {"L:Throttle1Position", "L:RPMLever1Position",
                                                       "L:Eng1_MixtureManualLever"};

/// Whether animations at or above a node are the yoke's roll and pitch.
struct YokeNames {
    bool roll = false, pitch = false;
    bool Both() const { return roll && pitch; }
    void Add(const Node& node, Reading reading) {
        if (!node.animation || (reading == Reading::Full && node.animation->outsideBlocks))
            return;
        roll |= IsYokeRollName(node.animation->name, reading);
        pitch |= IsYokePitchName(node.animation->name, reading);
    }
};

/// Cached per node: a cockpit's chains can be as deep as its number of nodes.
class YokeSearch {
public:
    YokeSearch(std::size_t nodeCount, Reading howToRead) : known(nodeCount), reading(howToRead) {}

    YokeNames AtOrAbove(const Node& node) {
        std::vector<const Node*> climbed;
        const Node* next = &node;
        for (; next && !known[Place(*next)]; next = next->parent)
            climbed.push_back(next);
        YokeNames names = next ? *known[Place(*next)] : YokeNames();
        for (auto step = climbed.rbegin(); step != climbed.rend(); ++step) {
            names.Add(**step, reading);
            known[Place(**step)] = names;
        }
        return names;
    }

private:
    static std::size_t Place(const Node& node) { return static_cast<std::size_t>(node.index); }

    std::vector<std::optional<YokeNames>> known; ///< by node
    Reading reading;
};

TouchInteractionType TypeOfCallback(const MouseRect& rect) {
    switch (rect.CallbackType) {
    case kTakesValue:
    case kSteps:
        return TouchInteractionType::Twist;
    case kFiresEvent:
        return TouchInteractionType::Tap;
    case kNoCallback:
        return rect.EventCallback ? TouchInteractionType::Tap : TouchInteractionType::None;
    default:
        return TouchInteractionType::None;
    }
}

bool Turns(const ModelAnimation& animation) {
    const auto isTurn = [](const RiffBlockXANK& key) { return !key.IsTranslation && key.Rotation.w() != 1.0f; };
    return std::ranges::any_of(animation.tracks, [&](const auto& track) { return std::ranges::any_of(track, isTurn); });
}

/// A draggable part is twisted only if it rotates, is balanced about its axis and stays near it.
DetectionRule DragRule(const NodePart& part) {
    const ModelAnimation* const animation = part.node->animation;
    if (animation && !Turns(*animation))
        return DetectionRule::NoTurn;
    if (part.BalanceFactor > kBalancedTwist)
        return DetectionRule::Unbalanced;
    if (animation && part.SweepRadius > kTwistRadius)
        return DetectionRule::WideSweep;
    return DetectionRule::Twist;
}

bool IsTouchedByManipulator(const NodePart& part, Reading reading) {
    return reading == Reading::Full && part.manipulator && part.manipulator->family != ManipulatorFamily::Untouched;
}

/// `yokeAbove` returns the yoke names at or above the part's node; only called for a part without a rectangle.
template <typename YokeAbove>
DetectionDecision Decide(const NodePart& part, Reading reading, YokeAbove yokeAbove) {
    using Type = TouchInteractionType;
    if (IsTouchedByManipulator(part, reading)) {
        const ManipulatorDecision decision = DecideManipulator(*part.manipulator);
        return {decision.type, DetectionRule::Manipulator, decision.rule};
    }
    const MouseRect* const rect = part.Rect();
    if (!rect) {
        if (yokeAbove().Both())
            return {Type::YokePart, DetectionRule::YokeAnimations};
        return {Type::None, DetectionRule::NoRectangle};
    }
    switch (TypeOfCallback(*rect)) {
    case Type::Twist: {
        const DetectionRule rule = DragRule(part);
        return {rule == DetectionRule::Twist ? Type::Twist : Type::Move, rule};
    }
    case Type::Tap:
        return {Type::Tap, DetectionRule::FiresEvent};
    default:
        return {Type::None, DetectionRule::NoCallback};
    }
}

void DriveLeverByPercent(MouseRect& rect, const ModelAnimation& animation) {
    for (const char* lever : kPercentLevers) {
        if (animation.name.find(lever) == std::string::npos)
            continue;
        auto callback = std::make_shared<CallbackDraggingCode>();
        callback->Code = lever;
        rect.VariableCallback = std::move(callback);
        rect.CallbackType = kTakesValue;
    }
}

void ClassifyPart(NodePart& part, Reading reading, YokeSearch& yokes) {
    part.InteractionType = Decide(part, reading, [&] { return yokes.AtOrAbove(*part.node); }).type;
    if (part.InteractionType != TouchInteractionType::Move)
        return;
    if (part.Rect()->CallbackType == kSteps && part.node->animation)
        DriveLeverByPercent(*part.Rect(), *part.node->animation);
}

void AssignEventType(NodePart& part, Reading reading) {
    part.EventType = TouchEventType::Wheel;
    if (IsTouchedByManipulator(part, reading)) {
        part.EventType = DecideManipulator(*part.manipulator).event;
        return;
    }
    const MouseRect* const rect = part.Rect();
    if (!rect)
        return;
    const auto* const jump = dynamic_cast<const CallbackJumpDragging*>(rect->VariableCallback.get());
    if (jump && jump->TwoCallbacks) {
        part.EventType = TouchEventType::LClickLClick;
        return;
    }
    const MouseFlagSet flags = DecodeMouseFlags(rect->MouseFlags);
    if (flags.RightSingle && flags.RightRelease && rect->CallbackType == kSteps)
        part.EventType = TouchEventType::LClickRClick;
}

void ChoosePrimaryYoke(SceneGraph& sceneGraph, const InteractionDetector& detector) {
    NodePart* best = nullptr;
    float bestScore = kWorstYokeScore;
    for (const auto& node : sceneGraph.Nodes()) {
        for (const auto& part : node->parts) {
            if (part->InteractionType != TouchInteractionType::YokePart)
                continue;
            if (const float score = detector.YokeScore(*part); score > bestScore) {
                bestScore = score;
                best = part.get();
            }
        }
    }
    if (!best)
        return;
    best->InteractionType = TouchInteractionType::YokePrimary;
    sceneGraph.SetYokePrimary(*best);
}

} // namespace

void InteractionDetector::Detect(SceneGraph& sceneGraph) const {
    Detect(sceneGraph, Reading::Plain);
}

void InteractionDetector::Detect(SceneGraph& sceneGraph, Reading reading) const {
    YokeSearch yokes(sceneGraph.Nodes().size(), reading);
    for (const auto& node : sceneGraph.Nodes()) {
        for (const auto& part : node->parts) {
            ClassifyPart(*part, reading, yokes);
            AssignEventType(*part, reading);
        }
    }
    ChoosePrimaryYoke(sceneGraph, *this);
}

DetectionDecision InteractionDetector::Explain(const NodePart& part, Reading reading) const {
    return Decide(part, reading, [&] {
        YokeNames names;
        for (const Node* node = part.node; node; node = node->parent)
            names.Add(*node, reading);
        return names;
    });
}

float InteractionDetector::YokeScore(const NodePart& part) const {
    return 10.0f * part.SweepRadius - Utils::TransformPoint(part.AxisTip, part.node->worldMatrix).x();
}

} // namespace CockpitModel
