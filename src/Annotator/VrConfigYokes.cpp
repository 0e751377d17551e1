#include "Annotator/VrConfigYokes.h"

#include "CockpitModel/Node.h"
#include "CockpitModel/PartTransformCalculator.h"
#include "CockpitModel/Touch/Manipulator.h"
#include "CockpitModel/Turning.h"
#include "Utils/Text.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <string_view>
#include <utility>

namespace Annotator {

namespace {

using CockpitModel::Manipulator;
using CockpitModel::ModelAnimation;
using CockpitModel::Node;
using CockpitModel::NodePart;
using CockpitModel::Turning;
using Utils::Matrix4;
using Utils::Vector3;

constexpr float kMirrorTolerance = 0.1f; // metres
constexpr float kLeastFromMiddle = 0.1f; // metres
/// Fractions of a metre, of an axis and of a degree that are written.
constexpr float kShownLength = 10'000, kShownAxis = 1'000'000, kShownAngle = 1'000;

/// From the model's axes to X-Plane's, and back.
Vector3 Flipped(const Vector3& v) {
    return {v.x(), v.y(), -v.z()};
}

/// The position in which a dataref is 0, or as near to it as it goes.
float RestPosition(const ModelAnimation& animation) {
    const float range = animation.rangeHigh - animation.rangeLow;
    return range == 0 ? 0 : std::clamp(-animation.rangeLow / range, 0.0f, 1.0f);
}

/// From a node's space to the model's, at rest; `straight` at an angle of 0, from which a rotation counts.
Matrix4 RestMatrix(const Node* node, const Node* straight) {
    Matrix4 m = Matrix4::Identity();
    for (; node; node = node->parent) {
        Matrix4 own = node->localMatrix;
        if (node->animation && node != straight)
            ApplyAnimation(*node->animation, own, RestPosition(*node->animation));
        m = m * own;
    }
    return m;
}

/// One of the two motions of a yoke.
struct YokeMotion {
    bool (*isName)(std::string_view name, CockpitModel::Reading reading);
    const char* word; ///< aircraft that move their yokes by datarefs of their own name them after the motion
};
constexpr YokeMotion kPitch{CockpitModel::IsYokePitchName, "pitch"}, kRoll{CockpitModel::IsYokeRollName, "roll"};

bool Names(const YokeMotion& motion, const std::string& dataref) {
    return motion.isName(dataref, CockpitModel::Reading::Full) ||
           Utils::ToLowerAscii(dataref).find(motion.word) != std::string::npos;
}

/// A rotation of a yoke, with its angles in degrees at the least and the greatest value.
struct YokeTurn {
    const Node* node = nullptr;
    Turning turning;
    float atLeast = 0, atGreatest = 0;
};

/// The values that the drag gives to the motion's dataref, the lesser first.
std::pair<double, double> DraggedRange(const Manipulator& drag, const YokeMotion& motion) {
    const auto name = std::ranges::find_if(drag.names, [&](const auto& dataref) { return Names(motion, dataref); });
    if (name == drag.names.end() || drag.rangeAt < 0)
        return {0, 0};
    const auto place = drag.rangeAt + 2 * (drag.firstName + (name - drag.names.begin()));
    const double a = drag.numbers.at(static_cast<std::size_t>(place)),
                 b = drag.numbers.at(static_cast<std::size_t>(place) + 1);
    return {std::min(a, b), std::max(a, b)};
}

/// Keys may lie at one half of the drag's range only, or have other units.
void SetAngles(YokeTurn& turn, const std::pair<double, double>& dragged) {
    const auto [least, greatest] = std::minmax(turn.turning.keys.front().value, turn.turning.keys.back().value);
    turn.atLeast = static_cast<float>(turn.turning.DegreesAt(std::min(least, dragged.first)));
    turn.atGreatest = static_cast<float>(turn.turning.DegreesAt(std::max(greatest, dragged.second)));
}

/// The rotation by one motion, at or above a part, that turns most.
std::optional<YokeTurn> FindYokeTurn(const NodePart& part, const YokeMotion& motion) {
    std::optional<YokeTurn> most;
    for (const Node* node = part.node; node; node = node->parent) {
        if (!node->animation || node->animation->outsideBlocks || !Names(motion, node->animation->name))
            continue;
        if (auto turning = CockpitModel::FindTurning(*node->animation);
            turning && (!most || turning->Extent() > most->turning.Extent()))
            most = YokeTurn{node, std::move(*turning)};
    }
    if (most)
        SetAngles(*most, DraggedRange(*part.manipulator, motion));
    return most;
}

std::string VectorText(const Vector3& v, float partsOfOne) {
    return VrConfigRounded(v.x(), partsOfOne) + VrConfigRounded(v.y(), partsOfOne) + VrConfigRounded(v.z(), partsOfOne);
}

/// Centre, axis, and the angles at the dataref's least and greatest value, with no angle of the yoke's other rotation.
std::string TurnText(const YokeTurn& turn, const YokeTurn& other, const VrConfigPlaces& places) {
    const Matrix4 toModel = turn.node->localMatrix * RestMatrix(turn.node->parent, other.node);
    const Vector3 centre = places.OfModel(toModel.row(3).head<3>());
    const Vector3 axis = Flipped(Vector3(Flipped(turn.turning.axis) * toModel.topLeftCorner<3, 3>()));
    return VectorText(centre, kShownLength) + VectorText(axis, kShownAxis) +
           VrConfigRounded(turn.atLeast, kShownAngle) + VrConfigRounded(turn.atGreatest, kShownAngle);
}

Vector3 MiddleOf(const NodePart& part) {
    Vector3 sum = Vector3::Zero();
    for (const auto& corner : part.vertices)
        sum += corner.position;
    return sum / static_cast<float>(std::max<std::size_t>(part.vertices.size(), 1));
}

} // namespace

VrConfigPlaces::VrConfigPlaces(const CockpitModel::AircraftCockpit& cockpit, const Vector3& start)
    : modelOffset(cockpit.modelOffset), origin(start) {}

Vector3 VrConfigPlaces::Mirrored(const Vector3& place) const {
    return {-(place.x() + origin.x()) - origin.x(), place.y(), place.z()};
}

Vector3 VrConfigPlaces::OfModel(const Vector3& point) const {
    return OfAircraft(Flipped(point - modelOffset));
}

VrConfigLines YokeLines(const std::vector<const NodePart*>& parts, const VrConfigPlaces& places) {
    VrConfigLines lines;
    for (const NodePart* part : parts) {
        const auto pitch = FindYokeTurn(*part, kPitch), roll = FindYokeTurn(*part, kRoll);
        if (!pitch || !roll)
            continue;
        lines.comments.push_back("Pitch, then roll: centre, axis, angles at the least and the greatest value.");
        lines.directives.push_back("YOKE_MANIP_ROTATE" + TurnText(*pitch, *roll, places) +
                                   TurnText(*roll, *pitch, places));
        break;
    }
    return lines;
}

bool HasSecondYoke(const std::vector<const NodePart*>& yokes, const VrConfigPlaces& places) {
    std::vector<Vector3> middles;
    for (const NodePart* part : yokes)
        middles.push_back(places.OfModel(Utils::TransformPoint(MiddleOf(*part), RestMatrix(part->node, nullptr))));
    return std::ranges::any_of(middles, [&](const Vector3& middle) {
        const Vector3 other = places.Mirrored(middle);
        const auto isThere = [&](const Vector3& place) { return Utils::Length(place - other) <= kMirrorTolerance; };
        return std::abs(other.x() - middle.x()) > 2 * kLeastFromMiddle && std::ranges::any_of(middles, isThere);
    });
}

} // namespace Annotator
