#include "Annotator/VrConfigYokes.h"

#include "CockpitModel/Node.h"
#include "CockpitModel/PartTransformCalculator.h"
#include "CockpitModel/Turning.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

namespace Annotator {

namespace {

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

/// From a node's space to the model's, at rest.
Matrix4 RestMatrix(const Node* node) {
    Matrix4 m = Matrix4::Identity();
    for (; node; node = node->parent) {
        Matrix4 own = node->localMatrix;
        if (node->animation)
            ApplyAnimation(*node->animation, own, RestPosition(*node->animation));
        m = m * own;
    }
    return m;
}

/// A rotation of a yoke.
struct YokeTurn {
    const Node* node = nullptr;
    Turning turning;
};

/// The rotation by roll, or by pitch, at or above a part that turns most.
template <typename IsName>
std::optional<YokeTurn> FindYokeTurn(const NodePart& part, IsName isName) {
    std::optional<YokeTurn> most;
    for (const Node* node = part.node; node; node = node->parent) {
        if (!node->animation || node->animation->outsideBlocks || !isName(node->animation->name))
            continue;
        if (auto turning = CockpitModel::FindTurning(*node->animation);
            turning && (!most || turning->Extent() > most->turning.Extent()))
            most = YokeTurn{node, std::move(*turning)};
    }
    return most;
}

std::string VectorText(const Vector3& v, float partsOfOne) {
    return VrConfigRounded(v.x(), partsOfOne) + VrConfigRounded(v.y(), partsOfOne) + VrConfigRounded(v.z(), partsOfOne);
}

/// Centre, axis, and the angles at the dataref's least and greatest value.
std::string TurnText(const YokeTurn& turn, const VrConfigPlaces& places) {
    const Matrix4 toModel = turn.node->localMatrix * RestMatrix(turn.node->parent);
    const Vector3 centre = places.OfModel(toModel.row(3).head<3>());
    const Vector3 axis = Flipped(Vector3(Flipped(turn.turning.axis) * toModel.topLeftCorner<3, 3>()));
    Turning::Key least = turn.turning.keys.front(), greatest = turn.turning.keys.back();
    if (least.value > greatest.value)
        std::swap(least, greatest);
    return VectorText(centre, kShownLength) + VectorText(axis, kShownAxis) +
           VrConfigRounded(static_cast<float>(least.degrees), kShownAngle) +
           VrConfigRounded(static_cast<float>(greatest.degrees), kShownAngle);
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
    constexpr auto reading = CockpitModel::Reading::Full;
    const auto isPitch = [](const std::string& name) { return CockpitModel::IsYokePitchName(name, reading); };
    const auto isRoll = [](const std::string& name) { return CockpitModel::IsYokeRollName(name, reading); };
    VrConfigLines lines;
    for (const NodePart* part : parts) {
        const auto pitch = FindYokeTurn(*part, isPitch), roll = FindYokeTurn(*part, isRoll);
        if (!pitch || !roll)
            continue;
        lines.comments.push_back("Pitch, then roll: centre, axis, angles at the least and the greatest value.");
        lines.directives.push_back("YOKE_MANIP_ROTATE" + TurnText(*pitch, places) + TurnText(*roll, places));
        break;
    }
    return lines;
}

bool HasSecondYoke(const std::vector<const NodePart*>& yokes, const VrConfigPlaces& places) {
    std::vector<Vector3> middles;
    for (const NodePart* part : yokes)
        middles.push_back(places.OfModel(Utils::TransformPoint(MiddleOf(*part), RestMatrix(part->node))));
    return std::ranges::any_of(middles, [&](const Vector3& middle) {
        const Vector3 other = places.Mirrored(middle);
        const auto isThere = [&](const Vector3& place) { return Utils::Length(place - other) <= kMirrorTolerance; };
        return std::abs(other.x() - middle.x()) > 2 * kLeastFromMiddle && std::ranges::any_of(middles, isThere);
    });
}

} // namespace Annotator
