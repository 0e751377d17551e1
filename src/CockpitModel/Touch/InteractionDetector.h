#pragma once

#include "CockpitModel/Reading.h"
#include "CockpitModel/Touch/Manipulator.h"
#include "CockpitModel/Touch/TouchTypes.h"

namespace CockpitModel {

class SceneGraph;
struct NodePart;

/// The rule that decides a part's type, in the order in which the rules are checked.
enum class DetectionRule {
    NoRectangle,    ///< nothing to click, and no yoke above it
    YokeAnimations, ///< nothing to click, under the animations of a yoke's roll and pitch
    FiresEvent,     ///< a click fires an event
    NoCallback,     ///< a rectangle that does nothing
    NoTurn,         ///< dragged, but its node's animation never turns
    Unbalanced,     ///< dragged, but its BalanceFactor is above kBalancedTwist
    WideSweep,      ///< dragged, but its SweepRadius is above kTwistRadius
    Twist,          ///< dragged, and none of the rules above applies
    Manipulator,    ///< full reading: a manipulator with a type of its own; see DetectionDecision::manipulator
};

inline constexpr float kBalancedTwist = 0.3f;
inline constexpr float kTwistRadius = 0.1f; ///< metres

struct DetectionDecision {
    TouchInteractionType type = TouchInteractionType::None; ///< YokePart for every candidate for the primary yoke
    DetectionRule rule = DetectionRule::NoRectangle;
    ManipulatorRule manipulator = ManipulatorRule::Untouched; ///< if `rule` is Manipulator
};

/// Detects for every part of a new scene graph how the user touches it, and which part is the primary yoke. The lever
/// rule can change a part's mouse rectangle.
class InteractionDetector {
public:
    void Detect(SceneGraph& sceneGraph) const;
    /// The full reading goes by the manipulators' keywords and cursors instead of the motion.
    void Detect(SceneGraph& sceneGraph, Reading reading) const;

    /// The rule that decides a measured part's type, and that type; used by Detect.
    DetectionDecision Explain(const NodePart& part, Reading reading = Reading::Plain) const;
    /// Higher for wide parts to the left, the pilot's yoke rather than the copilot's. The greatest score is the primary
    /// yoke.
    float YokeScore(const NodePart& part) const;
};

} // namespace CockpitModel
