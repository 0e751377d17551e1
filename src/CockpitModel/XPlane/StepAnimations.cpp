#include "CockpitModel/XPlane/StepAnimations.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

namespace CockpitModel {

namespace {

constexpr float kTimeEnd = 100;
/// Rotations are interpolated along the shorter arc, so a stretch between two keys must stay below it.
constexpr double kHalfTurn = 180;

RiffBlockXANK TranslationKey(float time, float x, float y, float z) {
    RiffBlockXANK key;
    key.Time = time;
    key.IsTranslation = true;
    key.Translation = {x, y, -z};
    return key;
}

/// Converts a rotation from X-Plane's axes to the model's, which negates x and y.
RiffBlockXANK RotationKey(float time, const Utils::Vector3& axis, float degrees) {
    const auto radians = static_cast<float>(static_cast<double>(degrees) * std::numbers::pi / 180.0);
    RiffBlockXANK key;
    key.Time = time;
    key.Rotation = Utils::RotationAboutAxis(axis, radians);
    key.Rotation.x() = -key.Rotation.x();
    key.Rotation.y() = -key.Rotation.y();
    return key;
}

RiffBlockXANK KeyAt(const XPObjKeyStep& step, float time, const XPObjKey& key) {
    const auto [x, y, z] = step.turns ? step.axis : key.shift;
    return step.turns ? RotationKey(time, {x, y, z}, key.degrees) : TranslationKey(time, x, y, z);
}

std::vector<XPObjKey> ByValue(std::vector<XPObjKey> keys) {
    std::ranges::stable_sort(keys, {}, &XPObjKey::value);
    return keys;
}

/// Number of equal pieces of the stretch between two neighbouring keys.
std::size_t PieceCount(const XPObjKeyStep& step, const XPObjKey& from, const XPObjKey& to) {
    if (!step.turns || from.value == to.value)
        return 1;
    constexpr double most = std::numeric_limits<std::int32_t>::max();
    const double halfTurns = std::abs(double{to.degrees} - double{from.degrees}) / kHalfTurn;
    return static_cast<std::size_t>(std::min(std::floor(halfTurns), most)) + 1;
}

bool IsFixed(const std::vector<XPObjKey>& sorted) {
    return sorted.front().value == sorted.back().value;
}

std::vector<RiffBlockXANK> TrackOf(const XPObjKeyStep& step, const std::vector<XPObjKey>& sorted) {
    if (IsFixed(sorted))
        return {KeyAt(step, 0, sorted.front()), KeyAt(step, kTimeEnd, sorted.front())};
    const double first = sorted.front().value, range = sorted.back().value - first;
    const auto timeOf = [&](double value) { return static_cast<float>(kTimeEnd * ((value - first) / range)); };
    std::vector<RiffBlockXANK> track;
    for (std::size_t i = 0; i + 1 < sorted.size(); ++i) {
        const XPObjKey &from = sorted[i], &to = sorted[i + 1];
        track.push_back(KeyAt(step, timeOf(from.value), from));
        const std::size_t pieces = PieceCount(step, from, to);
        for (std::size_t piece = 1; piece < pieces; ++piece) {
            const double u = static_cast<double>(piece) / static_cast<double>(pieces);
            XPObjKey between;
            between.degrees = static_cast<float>(std::lerp(double{from.degrees}, double{to.degrees}, u));
            track.push_back(KeyAt(step, timeOf(std::lerp(double{from.value}, double{to.value}, u)), between));
        }
    }
    track.push_back(KeyAt(step, kTimeEnd, sorted.back()));
    return track;
}

Utils::Matrix4 PoseOf(const RiffBlockXANK& key) {
    return key.IsTranslation ? Utils::Translation(key.Translation) : Utils::Rotation(key.Rotation);
}

/// The fraction of the way from one value to another at which 0 lies; 0 if they are equal.
float FractionAtZero(float from, float to) {
    const float fraction = -from / (to - from);
    return std::isfinite(fraction) ? fraction : 0.0f;
}

float Between(float from, float to, float fraction) {
    return from + (to - from) * fraction;
}

/// The key that the step would have for the value 0.
XPObjKey KeyAtZero(const std::vector<XPObjKey>& sorted) {
    std::size_t i = 0;
    while (i + 2 < sorted.size() && sorted[i + 1].value <= 0)
        ++i;
    const XPObjKey &from = sorted[i], &to = sorted[std::min(i + 1, sorted.size() - 1)];
    const float fraction = IsFixed(sorted) ? 0.0f : FractionAtZero(from.value, to.value);
    XPObjKey key;
    key.degrees = Between(from.degrees, to.degrees, fraction);
    for (std::size_t axis = 0; axis < key.shift.size(); ++axis)
        key.shift[axis] = Between(from.shift[axis], to.shift[axis], fraction);
    return key;
}

} // namespace

ModelAnimation StillAnimation() {
    ModelAnimation animation;
    animation.name = kDummyAnimationName;
    animation.rangeHigh = 1;
    animation.length = kTimeEnd;
    animation.tracks = {{TranslationKey(0, 0, 0, 0), TranslationKey(kTimeEnd, 0, 0, 0)}};
    return animation;
}

ModelAnimation StepAnimation(const XPObjAnimStep& step) {
    ModelAnimation animation;
    animation.name = step.dataref;
    animation.rangeLow = step.value1;
    animation.rangeHigh = step.value2;
    animation.length = kTimeEnd;
    if (step.translation) {
        const auto [x1, y1, z1, x2, y2, z2] = *step.translation;
        animation.tracks = {{TranslationKey(0, x1, y1, z1), TranslationKey(kTimeEnd, x2, y2, z2)}};
    } else {
        const auto [x, y, z, r1, r2] = *step.rotation;
        animation.tracks = {{RotationKey(0, {x, y, z}, r1), RotationKey(kTimeEnd, {x, y, z}, r2)}};
    }
    return animation;
}

ModelAnimation StepAnimation(const XPObjKeyStep& step) {
    const std::vector<XPObjKey> sorted = ByValue(step.keys);
    ModelAnimation animation;
    animation.name = step.dataref;
    animation.keyFramed = true;
    animation.loop = step.loop;
    animation.rangeLow = sorted.front().value;
    animation.rangeHigh = sorted.back().value;
    animation.length = kTimeEnd;
    animation.tracks = {TrackOf(step, sorted)};
    return animation;
}

Utils::Matrix4 PoseAtZero(const XPObjAnimStep& step) {
    const float fraction = FractionAtZero(step.value1, step.value2);
    const auto between = [fraction](float from, float to) { return Between(from, to, fraction); };
    if (step.translation) {
        const auto [x1, y1, z1, x2, y2, z2] = *step.translation;
        return PoseOf(TranslationKey(0, between(x1, x2), between(y1, y2), between(z1, z2)));
    }
    const auto [x, y, z, r1, r2] = *step.rotation;
    return PoseOf(RotationKey(0, {x, y, z}, between(r1, r2)));
}

Utils::Matrix4 PoseAtZero(const XPObjKeyStep& step) {
    return PoseOf(KeyAt(step, 0, KeyAtZero(ByValue(step.keys))));
}

std::size_t KeyCount(const XPObjKeyStep& step) {
    const std::vector<XPObjKey> sorted = ByValue(step.keys);
    std::size_t count = 2;
    for (std::size_t i = 1; i < sorted.size(); ++i)
        count += PieceCount(step, sorted[i - 1], sorted[i]);
    return count;
}

} // namespace CockpitModel
