#include "CockpitModel/PartMotion.h"

#include "CockpitModel/Node.h"
#include "Support/ModelBuilder.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace {

using namespace CockpitModel;
using Support::Animation;
using Support::Corner;
using Support::RotationKey;
using Support::TranslationKey;
using Utils::Vector3;

constexpr float kQuarterTurn = 1.5707964f;

/// A part of some corners under an animation of its node; without tracks, under a node that has none.
struct Measured {
    Measured(const std::vector<Corner>& corners, std::vector<std::vector<RiffBlockXANK>> tracks) {
        animation = Animation("a", std::move(tracks));
        if (!animation.tracks.empty())
            node.animation = &animation;
        part.node = &node;
        for (const Corner& corner : corners)
            part.vertices.emplace_back().position = {corner[0], corner[1], corner[2]};
        AnalysePartMotion(part);
    }

    ModelAnimation animation;
    Node node;
    NodePart part;
};

void ExpectNear(const Vector3& got, const Vector3& expected) {
    EXPECT_NEAR((got - expected).norm(), 0, 1e-5) << got << " instead of " << expected;
}

Utils::Quaternion About(const Vector3& axis, float radians) {
    return Utils::RotationAboutAxis(axis, radians);
}

TEST(PartMotionTest, AStillPartIsMeasuredByItsMean) {
    const Measured m({{1, 0, 0}, {0, 2, 0}, {0, 0, 6}}, {});
    ExpectNear(m.part.FarthestVertex, {1 / 3.0f, 2 / 3.0f, 2});
    ExpectNear(m.part.AxisTip, {1 / 3.0f, 2 / 3.0f, 2});
    ExpectNear(m.part.RotationAxis, {0, 0, 0});
    EXPECT_EQ(m.part.BalanceFactor, 0);
    EXPECT_EQ(m.part.SweepRadius, 0);
}

TEST(PartMotionTest, AQuarterTurnAboutZ) {
    // M = (1, 1, 0.29289), d = (0.69241, 0.69241, 0.20280), S = (0, 0.013848, 0).
    const Measured m({{0.02f, 0, 0}, {-0.02f, 0, 0}, {0, 0.02f, 0}},
                     {{RotationKey(0, About({0, 0, 1}, 0)), RotationKey(100, About({0, 0, 1}, kQuarterTurn))}});
    EXPECT_NEAR(m.part.BalanceFactor, 0.013848f, 1e-6);
    EXPECT_NEAR(m.part.SweepRadius, 0.013848f, 1e-6);
    ExpectNear(m.part.RotationAxis, {0, 0, 0.70711f});
    ExpectNear(m.part.FarthestVertex, {0.02f, 0, 0});
    ExpectNear(m.part.AxisTip, {0, 0, 0});
}

TEST(PartMotionTest, BothKeysOfATrackCount) {
    // From -45 to +45 degrees the two keys cancel out: no turn is left, so the axis stays zero.
    const Measured cancelled({{1, 0, 0}, {0, 1, 0}, {0, 0, 1}},
                             {{RotationKey(0, About({0, 1, 0}, -0.785f)), RotationKey(100, About({0, 1, 0}, 0.785f))}});
    ExpectNear(cancelled.part.RotationAxis, {0, 0, 0});
    // From 45 to 90 they add up to 135 degrees: sin(67.5 degrees) on the axis.
    const Measured added({{1, 0, 0}, {0, 1, 0}, {0, 0, 1}},
                         {{RotationKey(0, About({0, 1, 0}, kQuarterTurn / 2)), RotationKey(100, About({0, 1, 0}, kQuarterTurn))}});
    ExpectNear(added.part.RotationAxis, {0, 0.92388f, 0});
    // (0, 1, 0) is the one point along the axis; its tip lies 1.2 times as far.
    ExpectNear(added.part.AxisTip, {0, 1.2f * 0.92388f, 0});
}

TEST(PartMotionTest, TheMaskTakesTheSignedAxis) {
    // About -y by a quarter turn: the mask is (1, 1 + 0.70711, 1), its length sqrt(1 + 2.91421 + 1) = 2.21680.
    const Measured m({{0, 1, 0}, {0, 0, 0}, {0, 0, 0}},
                     {{RotationKey(0, About({0, -1, 0}, 0)), RotationKey(100, About({0, -1, 0}, kQuarterTurn))}});
    EXPECT_NEAR(m.part.SweepRadius, 1.70711f / 2.21680f, 1e-5);
    ExpectNear(m.part.RotationAxis, {0, 0.70711f, 0});
}

TEST(PartMotionTest, ATravelNarrowsTheMotionToItsDirection) {
    const std::vector<Corner> corners = {{3, 1, 0}, {-3, 1, 0}, {0, 1, 9}};
    const Measured m(corners, {{TranslationKey(0, 0, 0, 0), TranslationKey(100, 0, 0.2f, 0)}});
    // d = (0, 1, 0): all three corners lie 1 to one side, so the sum equals the absolute sum.
    EXPECT_NEAR(m.part.BalanceFactor, 1, 1e-6);
    EXPECT_NEAR(m.part.SweepRadius, 1, 1e-6);
    // A travel of 0.1 at most does not narrow it: d = (1, 1, 1) / sqrt(3).
    const Measured small(corners, {{TranslationKey(0, 0, 0, 0), TranslationKey(100, 0, 0.1f, 0)}});
    EXPECT_NEAR(small.part.SweepRadius, std::sqrt(82.0f / 3), 1e-4);
    // A travel of both keys counts twice.
    const Measured both(corners, {{TranslationKey(0, 0, 0.06f, 0), TranslationKey(100, 0, 0.06f, 0)}});
    EXPECT_NEAR(both.part.SweepRadius, 1, 1e-6);
}

TEST(PartMotionTest, TheDivisorIsAtLeastOne) {
    const std::vector<std::vector<RiffBlockXANK>> slide = {{TranslationKey(0, 0, 0, 0), TranslationKey(100, 0, 1, 0)}};
    // Sums of 0.9 and 3 along y: 0.9 / 1 and 3 / 3.
    EXPECT_NEAR(Measured({{0, 0.3f, 0}, {0, 0.3f, 0}, {0, 0.3f, 0}}, slide).part.BalanceFactor, 0.9f, 1e-6);
    EXPECT_NEAR(Measured({{0, 1, 0}, {0, 1, 0}, {0, 1, 0}}, slide).part.BalanceFactor, 1, 1e-6);
    EXPECT_NEAR(Measured({{0, 1, 0}, {0, -1, 0}, {0, 4, 0}}, slide).part.BalanceFactor, 4 / 6.0f, 1e-6);
}

TEST(PartMotionTest, EqualCandidatesLeaveTheFirst) {
    const Measured m({{0, 2, 0}, {2, 0, 0}, {0, 0, -2}},
                     {{TranslationKey(0, 0, 0, 0), TranslationKey(100, 0, 0, 0)}});
    ExpectNear(m.part.FarthestVertex, {0, 2, 0});
}

TEST(PartMotionTest, WhatIsNoNumberStaysInTheMeasure) {
    const float nan = std::numeric_limits<float>::quiet_NaN();
    const Measured m({{nan, 0, 0}, {1, 0, 0}, {0, 1, 0}}, {{TranslationKey(0, 0, 0, 0), TranslationKey(100, 0, 0, 0)}});
    EXPECT_TRUE(std::isnan(m.part.BalanceFactor));
    ExpectNear(m.part.FarthestVertex, {1, 0, 0});
    EXPECT_NEAR(m.part.SweepRadius, 1 / std::sqrt(3.0f), 1e-6);
}

} // namespace
