#include "CockpitModel/PartTransformCalculator.h"

#include "CockpitModel/Node.h"
#include "Utils/FatalError.h"

namespace CockpitModel {

namespace {

bool MovesAnything(const ModelAnimation& animation) {
    return animation.name != "none" && animation.name != kDummyAnimationName;
}

bool Contains(std::string_view text, const char* word) {
    return text.find(word) != std::string_view::npos;
}

/// Aircraft also drive their yokes by datarefs of other groups and of their own.
bool ContainsEither(std::string_view text, Reading reading, const char* word, const char* otherWord) {
    return reading == Reading::Full && (Contains(text, word) || Contains(text, otherWord));
}

/// The matrix from a node's space to its parent's, with its animation at the current position.
Utils::Matrix4 PlaceInParent(const Node& node) {
    Utils::Matrix4 m = node.localMatrix;
    if (node.animation)
        ApplyAnimation(*node.animation, m, node.animation->position);
    return m;
}

} // namespace

PartTransformCalculator::PartTransformCalculator(const NodePart& movedPart, const ModelAnimation& variedAnimation)
    : part(&movedPart), animation(&variedAnimation) {
    for (const Node* n = movedPart.node; n; n = n->parent) {
        if (n->animation == animation) {
            node = n;
            motion = motions.Add(*animation);
            return;
        }
        prefix = prefix * PlaceInParent(*n);
    }
    Utils::FatalError(HERE);
}

Utils::Matrix4 PartTransformCalculator::TransformAt(float t) const {
    Utils::Matrix4 m = node->localMatrix * node->parentMatrix;
    motions.Apply(motion, m, t);
    return prefix * m;
}

std::optional<PartTransformCalculator> FindPartTransform(const NodePart& part) {
    for (const Node* node = part.node; node; node = node->parent)
        if (node->animation && MovesAnything(*node->animation))
            return PartTransformCalculator(part, *node->animation);
    return std::nullopt;
}

bool IsYokeRollName(std::string_view animationName, Reading reading) {
    return Contains(animationName, "YOKE X POSITION") ||
           Contains(animationName, "sim/cockpit2/controls/yoke_roll_ratio") ||
           ContainsEither(animationName, reading, "yoke_roll_ratio", "FC_roll");
}

bool IsYokePitchName(std::string_view animationName, Reading reading) {
    return Contains(animationName, "YOKE Y POSITION") ||
           Contains(animationName, "sim/cockpit2/controls/yoke_pitch_ratio") ||
           ContainsEither(animationName, reading, "yoke_pitch_ratio", "FC_ptch");
}

} // namespace CockpitModel
