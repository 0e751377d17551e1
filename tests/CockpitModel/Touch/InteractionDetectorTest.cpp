#include "CockpitModel/Touch/InteractionDetector.h"

#include "CockpitModel/SceneGraph.h"
#include "CockpitModel/Touch/MouseFlags.h"
#include "Support/ModelBuilder.h"

#include <cmath>
#include <gtest/gtest.h>
#include <optional>

namespace {

using namespace CockpitModel;
using Support::Animation;
using Support::Corner;
using Support::ModelBuilder;
using Support::RotationKey;
using Support::TranslationKey;
using Type = TouchInteractionType;

const std::vector<Corner> kSmall = {{0.01f, 0, 0}, {-0.01f, 0, 0}, {0, 0.01f, 0}};

ModelAnimation Turn(const std::string& name = "turn") {
    return Animation(name, {{RotationKey(0, Utils::Quaternion::Identity()),
                             RotationKey(100, Utils::RotationAboutAxis({0, 0, 1}, 1.5f))}});
}

ModelAnimation Slide(const std::string& name = "slide") {
    return Animation(name, {{TranslationKey(0, 0, 0, 0), TranslationKey(100, 0, 0, 1)}});
}

ModelAnimation RestingTurn() {
    return Animation("resting", {{RotationKey(0, {1, 0, 0, 0}), RotationKey(100, {1, 0, 0, 0})}});
}

std::unique_ptr<SceneGraph> Detected(const ModelBuilder& builder) {
    auto graph = std::make_unique<SceneGraph>(builder.model, Support::ModelCockpit(), nullptr);
    InteractionDetector().Detect(*graph);
    return graph;
}

const NodePart& PartOf(const SceneGraph& graph, int node, int part = 0) {
    return *graph.Nodes().at(static_cast<std::size_t>(node))->parts.at(static_cast<std::size_t>(part));
}

/// The type of one part of some corners with a rectangle of a callback type, on a node with an animation or on the
/// root.
Type TypeOf(std::uint32_t callbackType, const std::vector<Corner>& corners, std::optional<ModelAnimation> animation) {
    ModelBuilder builder;
    const int node = animation ? builder.Node(0, *animation) : 0;
    builder.Part(node, corners);
    builder.Rect(callbackType);
    return PartOf(*Detected(builder), node).InteractionType;
}

TEST(InteractionDetectorTest, TheCallbackTypeDecidesFirst) {
    EXPECT_EQ(TypeOf(0, kSmall, {}), Type::None) << "nothing chosen and no event callback";
    EXPECT_EQ(TypeOf(1, kSmall, {}), Type::Tap);
    EXPECT_EQ(TypeOf(1, {{5, 0, 0}, {5, 1, 0}, {5, 0, 1}}, Slide()), Type::Tap) << "a tap whatever its geometry";
    EXPECT_EQ(TypeOf(2, kSmall, {}), Type::Twist);
    EXPECT_EQ(TypeOf(3, kSmall, {}), Type::Twist);
    EXPECT_EQ(TypeOf(4, kSmall, {}), Type::None);
    ModelBuilder builder;
    builder.Part(0, kSmall);
    builder.Rect(0).EventCallback = std::make_shared<CallbackEventID>();
    EXPECT_EQ(PartOf(*Detected(builder), 0).InteractionType, Type::Tap);
}

TEST(InteractionDetectorTest, ADraggablePartThatDoesNotTurnIsMoved) {
    EXPECT_EQ(TypeOf(2, kSmall, Turn()), Type::Twist);
    EXPECT_EQ(TypeOf(2, kSmall, Slide()), Type::Move);
    EXPECT_EQ(TypeOf(2, kSmall, RestingTurn()), Type::Move) << "w of exactly 1 is no turn";
    EXPECT_EQ(
        TypeOf(2, kSmall, Animation(kDummyAnimationName, {{TranslationKey(0, 0, 0, 0), TranslationKey(100, 0, 0, 0)}})),
        Type::Move);
    ModelBuilder underAnimatedParent;
    const int parent = underAnimatedParent.Node(0, Slide());
    const int child = underAnimatedParent.Node(parent);
    underAnimatedParent.Part(child, kSmall);
    underAnimatedParent.Rect(2);
    EXPECT_EQ(PartOf(*Detected(underAnimatedParent), child).InteractionType, Type::Twist) << "only its own node counts";
}

/// Corners along x, where the turn about z has its direction (1, 1, 1 - sin) / length: the sum is what matters.
TEST(InteractionDetectorTest, BalanceAndSweepLimitsLeaveTheLimitItselfATwist) {
    // A turn of two equal tracks about +z and -z keeps w below 1 but adds up to none: d = (1, 1, 1) / sqrt(3).
    const auto noAxis = Animation("a", {{RotationKey(0, Utils::RotationAboutAxis({0, 0, 1}, 1)),
                                         RotationKey(100, Utils::RotationAboutAxis({0, 0, -1}, 1))}});
    const float root3 = std::sqrt(3.0f);
    struct Row {
        const char* name;
        std::vector<Corner> corners;
        Type type;
    };
    const Row rows[] = {
        {"sweep 0.09", {{0.09f * root3, 0, 0}, {-0.09f * root3, 0, 0}, {0, 0, 0}}, Type::Twist},
        {"sweep 0.11", {{0.11f * root3, 0, 0}, {-0.11f * root3, 0, 0}, {0, 0, 0}}, Type::Move},
        {"balance 0.24", {{0.08f * root3, 0, 0}, {0.08f * root3, 0, 0}, {0.08f * root3, 0, 0}}, Type::Twist},
        {"balance 0.36",
         {{0.09f * root3, 0, 0}, {0.09f * root3, 0, 0}, {0.09f * root3, 0, 0}, {0.09f * root3, 0, 0}},
         Type::Move},
    };
    for (const Row& row : rows)
        EXPECT_EQ(TypeOf(2, row.corners, noAxis), row.type) << row.name;
}

TEST(InteractionDetectorTest, LimitsAreThirtyTwoBitFloats) {
    ModelBuilder builder;
    const int node = builder.Node(0, Turn());
    builder.Part(node, kSmall);
    builder.Rect(2);
    SceneGraph graph(builder.model, Support::ModelCockpit(), nullptr);
    NodePart& part = *graph.Nodes()[static_cast<std::size_t>(node)]->parts[0];
    const std::tuple<float, float, Type> rows[] = {
        {0.3f, 0.1f, Type::Twist},
        {std::nextafter(0.3f, 1.0f), 0.1f, Type::Move},
        {0.3f, std::nextafter(0.1f, 1.0f), Type::Move},
        {NAN, NAN, Type::Twist},
    };
    for (const auto& [balance, sweep, type] : rows) {
        part.BalanceFactor = balance;
        part.SweepRadius = sweep;
        InteractionDetector().Detect(graph);
        EXPECT_EQ(part.InteractionType, type) << balance << " " << sweep;
    }
}

TEST(InteractionDetectorTest, YokesNeedRollAndPitchAboveAPartWithoutRectangle) {
    ModelBuilder builder;
    const int pitch = builder.Node(0, Slide("my sim/cockpit2/controls/yoke_pitch_ratio copy"));
    const int between = builder.Node(pitch);
    const int roll = builder.Node(between, Turn("sim/cockpit2/controls/yoke_roll_ratio"));
    const int wrongCase = builder.Node(pitch, Turn("SIM/COCKPIT2/CONTROLS/YOKE_ROLL_RATIO"));
    const int both = builder.Node(0, Turn("YOKE X POSITION and YOKE Y POSITION"));
    builder.Part(roll, kSmall);
    builder.Part(roll, kSmall);
    builder.Rect(1);
    for (int node : {pitch, between, wrongCase, both})
        builder.Part(node, kSmall);
    const auto graph = Detected(builder);
    EXPECT_EQ(PartOf(*graph, roll).InteractionType, Type::YokePrimary);
    EXPECT_EQ(PartOf(*graph, roll, 1).InteractionType, Type::Tap) << "a rectangle never becomes a yoke";
    EXPECT_EQ(PartOf(*graph, both).InteractionType, Type::YokePart);
    for (int node : {pitch, between, wrongCase})
        EXPECT_EQ(PartOf(*graph, node).InteractionType, Type::None) << node;
    EXPECT_TRUE(graph->Model().animations[static_cast<std::size_t>(roll)].enabled);
    EXPECT_TRUE(graph->Model().animations[static_cast<std::size_t>(pitch)].enabled);
    EXPECT_FALSE(graph->Model().animations[static_cast<std::size_t>(both)].enabled);
}

TEST(InteractionDetectorTest, ThePrimaryYokeIsWideAndToTheLeftAndTheFirstOfEquals) {
    struct Row {
        float xOfFirst, xOfSecond;
        float widthOfSecond;
        int primary;
    };
    // The score is 10 * sweep - x: a sweep of 0.01 * sqrt(2/3) for the small part, more for the wide one.
    const Row rows[] = {
        {0, 0, 0.01f, 0}, {0, -0.5f, 0.01f, 1}, {0.5f, -0.5f, 0.01f, 1}, {0, 0.5f, 0.5f, 1}, {0, 9, 0.5f, 0}};
    for (const Row& row : rows) {
        ModelBuilder builder;
        std::vector<int> yokes;
        for (float x : {row.xOfFirst, row.xOfSecond}) {
            const int node = builder.Node(0, Turn("YOKE X POSITION YOKE Y POSITION"));
            builder.model.matrices.Children[static_cast<std::size_t>(node)] = Utils::Translation({x, 0, 0});
            const float width = yokes.empty() ? 0.01f : row.widthOfSecond;
            builder.Part(node, {{width, 0, 0}, {-width, 0, 0}, {0, 0, 0}});
            yokes.push_back(node);
        }
        const auto graph = Detected(builder);
        for (int i : {0, 1})
            EXPECT_EQ(PartOf(*graph, yokes[static_cast<std::size_t>(i)]).InteractionType,
                      i == row.primary ? Type::YokePrimary : Type::YokePart)
                << row.xOfFirst << " " << row.xOfSecond << " " << row.widthOfSecond;
    }
}

TEST(InteractionDetectorTest, ALeverThatStepsIsDrivenByPercentFromThenOn) {
    ModelBuilder builder;
    const int lever = builder.Node(0, Slide("x L:Throttle1Position L:RPMLever1Position"));
    const int other = builder.Node(0, Slide("L:Flaps"));
    builder.Part(lever, kSmall);
    MouseRect& rect = builder.Rect(3);
    builder.Part(other, kSmall);
    MouseRect& untouched = builder.Rect(3);
    const auto graph = Detected(builder);
    EXPECT_EQ(PartOf(*graph, lever).InteractionType, Type::Move);
    EXPECT_EQ(rect.CallbackType, 2u);
    const auto* callback = dynamic_cast<const CallbackDraggingCode*>(rect.VariableCallback.get());
    ASSERT_NE(callback, nullptr);
    EXPECT_EQ(callback->Code, "L:RPMLever1Position") << "a later match replaces an earlier one";
    EXPECT_EQ(untouched.CallbackType, 3u);
    EXPECT_EQ(untouched.VariableCallback, nullptr);
}

TEST(InteractionDetectorTest, EventTypesFollowCallbackAndFlags) {
    using namespace MouseFlag;
    struct Row {
        bool jump, twoCallbacks;
        std::uint32_t flags, callbackType;
        TouchEventType event;
    };
    const Row rows[] = {
        {true, true, RightSingle | RightRelease, 3, TouchEventType::LClickLClick},
        {true, false, RightSingle | RightRelease, 3, TouchEventType::LClickRClick},
        {false, false, RightSingle | RightRelease, 3, TouchEventType::LClickRClick},
        {true, false, RightSingle | LeftRelease, 3, TouchEventType::Wheel},
        {true, false, RightSingle | RightRelease, 2, TouchEventType::Wheel},
        {false, false, 0xA0000000, 1, TouchEventType::Wheel},
    };
    for (const Row& row : rows) {
        ModelBuilder builder;
        builder.Part(0, kSmall);
        MouseRect& rect = builder.Rect(row.callbackType);
        rect.MouseFlags = row.flags;
        if (row.jump) {
            auto callback = std::make_shared<CallbackJumpDragging>();
            callback->TwoCallbacks = row.twoCallbacks;
            rect.VariableCallback = callback;
        }
        EXPECT_EQ(PartOf(*Detected(builder), 0).EventType, row.event) << row.flags << " " << row.callbackType;
    }
}

} // namespace
