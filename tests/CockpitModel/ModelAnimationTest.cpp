#include "CockpitModel/ModelAnimation.h"

#include "Utils/RangeCheck.h"

#include <gmock/gmock.h>
#include <limits>
#include <numbers>

namespace CockpitModel {
namespace {

constexpr float kHalfPi = std::numbers::pi_v<float> / 2.0f;

RiffBlockXANK Shift(float time, const Utils::Vector3& offset) {
    RiffBlockXANK key;
    key.Time = time;
    key.IsTranslation = true;
    key.Translation = offset;
    return key;
}

RiffBlockXANK ShiftX(float time, float x) {
    return Shift(time, {x, 0, 0});
}

RiffBlockXANK TurnZ(float time, float radians) {
    RiffBlockXANK key;
    key.Time = time;
    key.Rotation = Utils::RotationAboutAxis({0, 0, 1}, radians);
    return key;
}

ModelAnimation Animation(std::vector<std::vector<RiffBlockXANK>> tracks, float length = 100.0f) {
    ModelAnimation animation;
    animation.name = "test/lever";
    animation.tracks = std::move(tracks);
    animation.length = length;
    return animation;
}

Utils::Matrix4 MatrixAt(const ModelAnimation& animation, float position) {
    Utils::Matrix4 m = Utils::Matrix4::Identity();
    ApplyAnimation(animation, m, position);
    return m;
}

TEST(ApplyAnimation, FindsTheSegmentAndDoesNotClampWithinIt) {
    const struct {
        const char* name;
        std::vector<RiffBlockXANK> track;
        float position, x;
    } rows[] = {
        {"start", {ShiftX(0, 3), ShiftX(100, 7)}, 0, 3},
        {"end", {ShiftX(0, 3), ShiftX(100, 7)}, 1, 7},
        {"between", {ShiftX(0, 3), ShiftX(100, 7)}, 0.25f, 4},
        {"past the end", {ShiftX(0, 3), ShiftX(100, 7)}, 5, 7},
        {"below the start", {ShiftX(0, 3), ShiftX(100, 7)}, -2, 3},
        {"equal times", {ShiftX(50, 3), ShiftX(50, 7)}, 0, 7},
        {"descending times", {ShiftX(60, 3), ShiftX(40, 7)}, 0.5f, 7},
        {"a key that is reached exactly ends its segment", {ShiftX(0, 0), ShiftX(50, 8), ShiftX(100, 2)}, 0.5f, 8},
        {"second segment", {ShiftX(0, 0), ShiftX(50, 8), ShiftX(100, 2)}, 0.75f, 5},
        // u = (0.1 - 0.2) / (1 - 0.2) = -0.125
        {"ahead of the first key", {ShiftX(20, 0), ShiftX(100, 8)}, 0.1f, -1},
        // Both 0 and 20 lie before 0.5, and the last of them in list order counts: from 20 on to 60.
        {"out of order", {ShiftX(0, 0), ShiftX(80, 1), ShiftX(20, 2), ShiftX(60, 6)}, 0.5f, 5},
        // The last key never begins a segment: u = (1 - 0) / (0.5 - 0) = 2
        {"behind the last key", {ShiftX(0, 0), ShiftX(50, 4)}, 1, 8},
    };
    for (const auto& row : rows)
        EXPECT_FLOAT_EQ(MatrixAt(Animation({row.track}), row.position)(3, 0), row.x) << row.name;
}

TEST(ApplyAnimation, ScalesThePositionByTheLength) {
    const ModelAnimation animation = Animation({{ShiftX(0, 0), ShiftX(50, 10)}}, 50);
    EXPECT_FLOAT_EQ(MatrixAt(animation, 0.25f)(3, 0), 5);
    EXPECT_FLOAT_EQ(MatrixAt(animation, 0.5f)(3, 0), 10);
    EXPECT_FLOAT_EQ(MatrixAt(animation, 1)(3, 0), 10);
}

TEST(ApplyAnimation, TurnsOnTheShorterArc) {
    const ModelAnimation quarter = Animation({{TurnZ(0, 0), TurnZ(100, kHalfPi)}});
    const float root = std::sqrt(0.5f);
    // A positive turn about z takes x to y, seen as row vectors.
    EXPECT_TRUE(Utils::TransformPoint({1, 0, 0}, MatrixAt(quarter, 0)).isApprox(Utils::Vector3(1, 0, 0)));
    EXPECT_TRUE(Utils::TransformPoint({1, 0, 0}, MatrixAt(quarter, 0.5f)).isApprox(Utils::Vector3(root, root, 0)));
    EXPECT_TRUE(Utils::TransformPoint({1, 0, 0}, MatrixAt(quarter, 1)).isApprox(Utils::Vector3(0, 1, 0), 1e-5f));

    ModelAnimation sameBySign = quarter;
    sameBySign.tracks[0][1].Rotation.coeffs() *= -1.0f;
    EXPECT_TRUE(MatrixAt(sameBySign, 0.5f).isApprox(MatrixAt(quarter, 0.5f)));
}

TEST(ApplyAnimation, KindOfTheFirstKeyDecides) {
    RiffBlockXANK shift = ShiftX(0, 4);
    RiffBlockXANK turn = TurnZ(100, kHalfPi);
    // The turn's own translation is zero, the shift's own rotation is none.
    EXPECT_FLOAT_EQ(MatrixAt(Animation({{shift, turn}}), 0.5f)(3, 0), 2);
    turn.Time = 0;
    shift.Time = 100;
    EXPECT_FLOAT_EQ(MatrixAt(Animation({{turn, shift}}), 0)(0, 1), 1);
}

TEST(ApplyAnimation, ActsAheadOfTheMatrixAndLaterTracksNearerToTheVertex) {
    const std::vector<RiffBlockXANK> shift = {ShiftX(0, 5), ShiftX(100, 5)};
    const std::vector<RiffBlockXANK> turn = {TurnZ(0, kHalfPi), TurnZ(100, kHalfPi)};
    Utils::Matrix4 m = Utils::Translation({0, 0, 7});
    ApplyAnimation(Animation({shift, turn}), m, 1);
    // Turned to (0, 1, 0), then moved by 5 along x, then placed by what m held.
    EXPECT_TRUE(Utils::TransformPoint({1, 0, 0}, m).isApprox(Utils::Vector3(5, 1, 7), 1e-5f));

    m = Utils::RotationZ(kHalfPi);
    ApplyAnimation(Animation({shift}), m, 1);
    EXPECT_TRUE(Utils::TransformPoint({1, 0, 0}, m).isApprox(Utils::Vector3(0, 6, 0), 1e-5f));

    m = Utils::Translation({1, 2, 3});
    ApplyAnimation(Animation({}), m, 1);
    EXPECT_EQ(m, Utils::Translation({1, 2, 3}));
}

TEST(ApplyAnimation, ThrowsForATrackWithoutSegment) {
    for (const auto& track : {std::vector<RiffBlockXANK>{}, std::vector<RiffBlockXANK>{ShiftX(0, 1)}}) {
        Utils::Matrix4 m = Utils::Matrix4::Identity();
        try {
            ApplyAnimation(Animation({track}), m, 0);
            ADD_FAILURE() << track.size() << " keys make no segment";
        } catch (const Utils::OutOfRange& error) {
            EXPECT_STREQ(error.what(), "invalid vector<T> subscript");
            EXPECT_THAT(error.Reason(), testing::HasSubstr("test/lever"));
        }
    }
}

TEST(ApplyAnimation, NumbersThatAreNoneDoNoHarm) {
    const float nan = std::numeric_limits<float>::quiet_NaN();
    const ModelAnimation animation = Animation({{ShiftX(0, 3), ShiftX(100, 7)}});
    EXPECT_TRUE(std::isnan(MatrixAt(animation, nan)(3, 0)));
    EXPECT_FLOAT_EQ(MatrixAt(animation, std::numeric_limits<float>::infinity())(3, 0), 7);
    // Without a time axis no time is ahead of another.
    EXPECT_FLOAT_EQ(MatrixAt(Animation({{ShiftX(0, 3), ShiftX(0, 7)}}, 0), 0)(3, 0), 7);
}

} // namespace
} // namespace CockpitModel
