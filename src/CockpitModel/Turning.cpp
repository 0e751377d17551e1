#include "CockpitModel/Turning.h"

#include "CockpitModel/ModelAnimation.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace CockpitModel {

namespace {

constexpr double kDegreesPerRadian = 180.0 / std::numbers::pi;
/// A rotation and its quaternion repeat after this.
constexpr double kTwoTurns = 720;

/// The axis times the sine of half the angle; x and y change sign between the model's axes and X-Plane's.
Utils::Vector3 VectorPart(const Utils::Quaternion& rotation) {
    return {-rotation.x(), -rotation.y(), rotation.z()};
}

Utils::Vector3 AxisOf(const std::vector<RiffBlockXANK>& track) {
    Utils::Vector3 longest = Utils::Vector3::Zero();
    for (const RiffBlockXANK& key : track)
        if (const Utils::Vector3 v = VectorPart(key.Rotation); Utils::Length(v) > Utils::Length(longest))
            longest = v;
    return Utils::Normalised(longest);
}

double DegreesOf(const Utils::Quaternion& rotation, const Utils::Vector3& axis) {
    return 2.0 * std::atan2(double{Utils::Dot(VectorPart(rotation), axis)}, double{rotation.w()}) * kDegreesPerRadian;
}

/// Between two key frames the model turns by less than half a turn.
double NearestTo(double before, double degrees) {
    return degrees + kTwoTurns * std::round((before - degrees) / kTwoTurns);
}

} // namespace

std::optional<Turning> FindTurning(const ModelAnimation& animation) {
    if (animation.tracks.size() != 1 || animation.tracks.front().size() < 2)
        return std::nullopt;
    const std::vector<RiffBlockXANK>& track = animation.tracks.front();
    if (track.front().IsTranslation)
        return std::nullopt;
    Turning turning;
    turning.axis = AxisOf(track);
    const double range = double{animation.rangeHigh} - double{animation.rangeLow};
    for (const RiffBlockXANK& key : track) {
        double degrees = DegreesOf(key.Rotation, turning.axis);
        if (animation.keyFramed && !turning.keys.empty())
            degrees = NearestTo(turning.keys.back().degrees, degrees);
        const double fraction = double{key.Time} / double{animation.length};
        turning.keys.push_back({animation.rangeLow + range * fraction, degrees});
    }
    const auto turns = [&](const Turning::Key& key) { return key.degrees != turning.keys.front().degrees; };
    return std::ranges::any_of(turning.keys, turns) ? std::optional(turning) : std::nullopt;
}

double Turning::DegreesAt(double value) const {
    std::size_t from = 0;
    while (from + 2 < keys.size() && keys[from + 1].value <= value)
        ++from;
    while (from > 0 && keys[from + 1].value == keys[from].value) // two keys of one value
        --from;
    const Key &a = keys[from], &b = keys[from + 1];
    if (a.value == b.value)
        return a.degrees;
    return a.degrees + (b.degrees - a.degrees) * (value - a.value) / (b.value - a.value);
}

double Turning::Extent() const {
    return std::abs(keys.back().degrees - keys.front().degrees);
}

} // namespace CockpitModel
