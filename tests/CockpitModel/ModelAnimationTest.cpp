#include "CockpitModel/ModelAnimation.h"

#include "Support/ModelBuilder.h"
#include "Utils/RangeCheck.h"

#include <gmock/gmock.h>
#include <limits>
#include <numbers>

namespace CockpitModel {
namespace {

using Support::Animation;
using Support::Track;
using Utils::Vector3;

constexpr float kHalfPi = std::numbers::pi_v<float> / 2.0f;
constexpr float kNoNumber = std::numeric_limits<float>::quiet_NaN();

RiffBlockXANK ShiftX(float time, float x) {
    return Support::TranslationKey(time, x, 0, 0);
}

RiffBlockXANK TurnZ(float time, float radians) {
    return Support::RotationKey(time, Utils::RotationAboutAxis({0, 0, 1}, radians));
}

/// Where the animation, applied before a matrix, moves a point on the x axis.
Vector3 Moved(const Vector3& point, std::vector<Track> tracks, float position,
              Utils::Matrix4 m = Utils::Matrix4::Identity()) {
    ApplyAnimation(Animation("test/lever", std::move(tracks)), m, position);
    return Utils::TransformPoint(point, m);
}

TEST(ApplyAnimation, FindsTheSegmentAndDoesNotClampWithinIt) {
    const Track two = {ShiftX(0, 3), ShiftX(100, 7)};
    const struct {
        const char* name;
        Track track;
        float position, x;
    } rows[] = {
        {"start", two, 0, 3},
        {"end", two, 1, 7},
        {"between", two, 0.25f, 4},
        {"past the end", two, 5, 7},
        {"below the start", two, -2, 3},
        {"equal times", {ShiftX(50, 3), ShiftX(50, 7)}, 0, 7},
        {"at a jump", {ShiftX(0, 0), ShiftX(50, 8), ShiftX(50, 2), ShiftX(100, 2)}, 0.5f, 8},
        // u = (0.1 - 0.2) / (1 - 0.2) = -0.125
        {"before the first key", {ShiftX(20, 0), ShiftX(100, 8)}, 0.1f, -1},
        // Both 0 and 20 are before 0.5, and the last of them in list order counts: from 20 to 60.
        {"out of order", {ShiftX(0, 0), ShiftX(80, 1), ShiftX(20, 2), ShiftX(60, 6)}, 0.5f, 5},
        // The last key never starts a segment: u = (1 - 0) / (0.5 - 0) = 2
        {"after the last key", {ShiftX(0, 0), ShiftX(50, 4)}, 1, 8},
    };
    for (const auto& row : rows)
        EXPECT_FLOAT_EQ(Moved({0, 0, 0}, {row.track}, row.position).x(), row.x) << row.name;
    EXPECT_TRUE(std::isnan(Moved({0, 0, 0}, {two}, kNoNumber).x()));
}

TEST(ApplyAnimation, RotatesAlongTheShorterArcAndUsesTheKindOfTheFirstKey) {
    const float root = std::sqrt(0.5f);
    RiffBlockXANK otherSign = TurnZ(100, kHalfPi);
    otherSign.Rotation.coeffs() *= -1.0f;
    const struct {
        const char* name;
        Track track;
        float position;
        Vector3 end; ///< of a positive rotation about z, which maps x to y
    } rows[] = {
        {"half way", {TurnZ(0, 0), TurnZ(100, kHalfPi)}, 0.5f, {root, root, 0}},
        {"the same turn by its other sign", {TurnZ(0, 0), otherSign}, 0.5f, {root, root, 0}},
        // A rotation key has no translation, a translation key no rotation.
        {"a translation followed by a rotation", {ShiftX(0, 4), TurnZ(100, kHalfPi)}, 0.5f, {3, 0, 0}},
        {"a rotation followed by a translation", {TurnZ(0, kHalfPi), ShiftX(100, 4)}, 0, {0, 1, 0}},
    };
    for (const auto& row : rows) {
        const Vector3 end = Moved({1, 0, 0}, {row.track}, row.position);
        EXPECT_TRUE(end.isApprox(row.end, 1e-5f)) << row.name << ": " << end;
    }
}

TEST(ApplyAnimation, MultipliesFromTheLeftWithLaterTracksNearestTheVertex) {
    const Track shift = {ShiftX(0, 5), ShiftX(100, 5)}, turn = {TurnZ(0, kHalfPi), TurnZ(100, kHalfPi)};
    // Rotated to (0, 1, 0), then moved by 5 along x, then transformed by the original matrix.
    const Vector3 both = Moved({1, 0, 0}, {shift, turn}, 1, Utils::Translation({0, 0, 7}));
    EXPECT_TRUE(both.isApprox(Vector3(5, 1, 7), 1e-5f)) << both;
    const Vector3 within = Moved({1, 0, 0}, {shift}, 1, Utils::RotationZ(kHalfPi));
    EXPECT_TRUE(within.isApprox(Vector3(0, 6, 0), 1e-5f)) << within;
}

} // namespace
} // namespace CockpitModel
