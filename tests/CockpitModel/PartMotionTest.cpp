#include "CockpitModel/PartMotion.h"

#include "CockpitModel/Node.h"
#include "Support/ModelBuilder.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace {

using namespace CockpitModel;
using Support::Corner;
using Support::Slide;
using Support::Track;
using Utils::Vector3;

constexpr float kQuarterTurn = 1.5707964f;

/// A part with these corners and an animation of its node; without tracks, the node has no animation.
struct Measured : NodePart {
    Measured(const std::vector<Corner>& corners, std::vector<Track> tracks, bool keyFramed = false)
        : animation(Support::Animation("a", std::move(tracks))) {
        animation.keyFramed = keyFramed;
        if (!animation.tracks.empty())
            itsNode.animation = &animation;
        node = &itsNode;
        for (const Corner& corner : corners)
            vertices.emplace_back().position = {corner[0], corner[1], corner[2]};
        AnalysePartMotion(*this);
    }

    ModelAnimation animation;
    Node itsNode;
};

void ExpectNear(const Vector3& got, const Vector3& expected) {
    EXPECT_NEAR((got - expected).norm(), 0, 1e-5) << got << " instead of " << expected;
}

Track Turn(const Vector3& axis, float from, float to) {
    return {Support::RotationKey(0, Utils::RotationAboutAxis(axis, from)),
            Support::RotationKey(100, Utils::RotationAboutAxis(axis, to))};
}

TEST(PartMotionTest, AStaticPartIsMeasuredByItsMean) {
    const Measured part({{1, 0, 0}, {0, 2, 0}, {0, 0, 6}}, {});
    ExpectNear(part.FarthestVertex, {1 / 3.0f, 2 / 3.0f, 2});
    ExpectNear(part.AxisTip, part.FarthestVertex);
    ExpectNear(part.RotationAxis, {0, 0, 0});
    EXPECT_EQ(part.BalanceFactor, 0);
    EXPECT_EQ(part.SweepRadius, 0);
}

TEST(PartMotionTest, ARotationIsMeasuredAcrossItsSignedAxis) {
    // M = (1, 1, 0.29289), d = (0.69241, 0.69241, 0.20280), S = (0, 0.013848, 0).
    const Measured part({{0.02f, 0, 0}, {-0.02f, 0, 0}, {0, 0.02f, 0}}, {Turn({0, 0, 1}, 0, kQuarterTurn)});
    EXPECT_NEAR(part.BalanceFactor, 0.013848f, 1e-6);
    EXPECT_NEAR(part.SweepRadius, 0.013848f, 1e-6);
    ExpectNear(part.RotationAxis, {0, 0, 0.70711f});
    ExpectNear(part.FarthestVertex, {0.02f, 0, 0});
    ExpectNear(part.AxisTip, {0, 0, 0});
    // About -y the mask is (1, 1 + 0.70711, 1), its length sqrt(1 + 2.91421 + 1) = 2.21680.
    const Measured negative({{0, 1, 0}, {0, 0, 0}, {0, 0, 0}}, {Turn({0, -1, 0}, 0, kQuarterTurn)});
    EXPECT_NEAR(negative.SweepRadius, 1.70711f / 2.21680f, 1e-5);
    ExpectNear(negative.RotationAxis, {0, 0.70711f, 0});
    // 5 degrees are 0.087 radians and not a rotation; 7 are 0.122, with sin(3.5 degrees) on the axis.
    constexpr float kDegree = kQuarterTurn / 90;
    ExpectNear(Measured({{0, 1, 0}}, {Turn({0, 0, 1}, 0, 5 * kDegree)}).RotationAxis, {0, 0, 0});
    ExpectNear(Measured({{0, 1, 0}}, {Turn({0, 0, 1}, 0, 7 * kDegree)}).RotationAxis, {0, 0, 0.06105f});
}

TEST(PartMotionTest, BothKeysOfATrackCount) {
    const std::vector<Corner> corners = {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}};
    // From -45 to +45 degrees the two keys cancel out: no rotation is left, so the axis stays zero.
    ExpectNear(Measured(corners, {Turn({0, 1, 0}, -0.785f, 0.785f)}).RotationAxis, {0, 0, 0});
    // From 45 to 90 they add up to 135 degrees: sin(67.5 degrees) on the axis. (0, 1, 0) is the only point along it,
    // and its tip is 1.2 times as far.
    const Measured added(corners, {Turn({0, 1, 0}, kQuarterTurn / 2, kQuarterTurn)});
    ExpectNear(added.RotationAxis, {0, 0.92388f, 0});
    ExpectNear(added.AxisTip, {0, 1.2f * 0.92388f, 0});
    // A quarter turn about x times one about y is (0.5, 0.5, 0.5), so M has three equal components; in the other order
    // z would be -0.5.
    Track aboutXThenY = Turn({1, 0, 0}, kQuarterTurn, 0);
    aboutXThenY[1] = Turn({0, 1, 0}, kQuarterTurn, 0)[0];
    EXPECT_NEAR(Measured({{0, 0, 1}}, {aboutXThenY}).SweepRadius, 1 / std::sqrt(3.0f), 1e-5);
    // Of key frames the two ends count: 45 and 90 degrees, as above.
    Track three = Turn({0, 1, 0}, kQuarterTurn / 2, kQuarterTurn);
    three.insert(three.begin() + 1, Turn({1, 0, 0}, 1, 1)[0]);
    ExpectNear(Measured(corners, {three}, true).RotationAxis, {0, 0.92388f, 0});
    // M = (1, 1, 0.29289) times (0.6, 0, 0.8) is (0.6, 0, 0.23431), whose length is 0.64413.
    const Measured travelling({{0, 0, 1}}, {Turn({0, 0, 1}, 0, kQuarterTurn), Slide(3, 0, 4)});
    EXPECT_NEAR(travelling.SweepRadius, 0.23431f / 0.64413f, 1e-4);
}

TEST(PartMotionTest, ATranslationAboveTheLimitRestrictsTheMotionToItsDirection) {
    const std::vector<Corner> corners = {{3, 1, 0}, {-3, 1, 0}, {0, 1, 9}};
    // d = (0, 1, 0): all three corners are 1 to one side, so the sum equals the absolute sum.
    const Measured part(corners, {Slide(0, 0.105f, 0)});
    EXPECT_NEAR(part.BalanceFactor, 1, 1e-6);
    EXPECT_NEAR(part.SweepRadius, 1, 1e-6);
    // 0.1 is not above it: d = (1, 1, 1) / sqrt(3).
    EXPECT_NEAR(Measured(corners, {Slide(0, 0.1f, 0)}).SweepRadius, std::sqrt(82.0f / 3), 1e-4);
    Track both = Slide(0, 0.06f, 0);
    both[0].Translation = both[1].Translation;
    EXPECT_NEAR(Measured(corners, {both}).SweepRadius, 1, 1e-6) << "both keys count";
}

TEST(PartMotionTest, TheDivisorIsAtLeastOne) {
    const Track up = Slide(0, 1, 0);
    EXPECT_NEAR(Measured({{0, 0.3f, 0}, {0, 0.3f, 0}, {0, 0.3f, 0}}, {up}).BalanceFactor, 0.9f, 1e-6) << "0.9 / 1";
    EXPECT_NEAR(Measured({{0, 1, 0}, {0, -1, 0}, {0, 4, 0}}, {up}).BalanceFactor, 4 / 6.0f, 1e-6);
}

TEST(PartMotionTest, TheFirstOfEqualsCountsAndNanIsKept) {
    ExpectNear(Measured({{0, 2, 0}, {2, 0, 0}, {0, 0, -2}}, {Slide(0, 0, 0)}).FarthestVertex, {0, 2, 0});
    const float nan = std::numeric_limits<float>::quiet_NaN();
    const Measured part({{nan, 0, 0}, {1, 0, 0}, {0, 1, 0}}, {Slide(0, 0, 0)});
    EXPECT_TRUE(std::isnan(part.BalanceFactor));
    ExpectNear(part.FarthestVertex, {1, 0, 0});
    EXPECT_NEAR(part.SweepRadius, 1 / std::sqrt(3.0f), 1e-6);
}

} // namespace
