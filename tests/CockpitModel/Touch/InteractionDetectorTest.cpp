#include "CockpitModel/Touch/InteractionDetector.h"

#include "CockpitModel/SceneGraph.h"
#include "CockpitModel/Touch/MouseFlags.h"
#include "Support/ModelBuilder.h"

#include <cmath>
#include <gtest/gtest.h>
#include <optional>

namespace {

using namespace CockpitModel;
using Support::Corner;
using Support::ModelBuilder;
using Support::Track;
using Type = TouchInteractionType;

const std::vector<Corner> kSmall = {{0.01f, 0, 0}, {-0.01f, 0, 0}, {0, 0.01f, 0}};
const Track kSlide = Support::Slide(0, 0, 1);

Track TurnTo(float radians) {
    return {Support::RotationKey(0, Utils::Quaternion::Identity()),
            Support::RotationKey(100, Utils::RotationAboutAxis({0, 0, 1}, radians))};
}
const Track kTurn = TurnTo(1.5f);

std::unique_ptr<SceneGraph> Detected(const ModelBuilder& builder) {
    auto graph = std::make_unique<SceneGraph>(builder.model, Support::ModelCockpit(), nullptr);
    InteractionDetector().Detect(*graph);
    return graph;
}

const NodePart& PartOf(const SceneGraph& graph, int node, int part = 0) {
    return *graph.Nodes().at(static_cast<std::size_t>(node))->parts.at(static_cast<std::size_t>(part));
}

TEST(InteractionDetectorTest, TheCallbackTypeDecidesBeforeTheMotionOfTheOwnNode) {
    const struct {
        const char* name;
        std::uint32_t callbackType;
        std::vector<Track> tracks; ///< of the part's own node
        Type type;
    } rows[] = {
        {"nothing chosen and no event callback", 0, {}, Type::None},
        {"event, whatever it moves", 1, {kSlide}, Type::Tap},
        {"drag", 2, {}, Type::Twist},
        {"drag that slides", 2, {kSlide}, Type::Move},
        {"drag with w of exactly 1, not a rotation", 2, {TurnTo(0)}, Type::Move},
        {"steps", 3, {}, Type::Twist},
        {"a type that there is not", 4, {}, Type::None},
    };
    for (const auto& row : rows) {
        ModelBuilder builder;
        const int animated = builder.Node(0, Support::Animation("a", row.tracks));
        const int parent = builder.Node(0, "parent", kSlide), child = builder.Node(parent);
        const int node = row.tracks.empty() ? child : animated;
        builder.Part(node, kSmall);
        builder.Rect(row.callbackType);
        EXPECT_EQ(PartOf(*Detected(builder), node).InteractionType, row.type) << row.name;
    }
    ModelBuilder builder;
    builder.Part(0, kSmall);
    builder.Rect(0).EventCallback = std::make_shared<CallbackEventID>();
    EXPECT_EQ(PartOf(*Detected(builder), 0).InteractionType, Type::Tap);
}

TEST(InteractionDetectorTest, LimitsAreThirtyTwoBitFloats) {
    ModelBuilder builder;
    const int node = builder.Node(0, "turn", kTurn);
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
    const int pitch = builder.Node(0, "my sim/cockpit2/controls/yoke_pitch_ratio copy", kSlide);
    const int between = builder.Node(pitch);
    const int roll = builder.Node(between, "sim/cockpit2/controls/yoke_roll_ratio", kTurn);
    const int wrongCase = builder.Node(pitch, "SIM/COCKPIT2/CONTROLS/YOKE_ROLL_RATIO", kTurn);
    const int both = builder.Node(0, "YOKE X POSITION and YOKE Y POSITION", kTurn);
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
}

TEST(InteractionDetectorTest, ThePrimaryYokeIsWideAndToTheLeftAndTheFirstOfEquals) {
    // The score is 10 * sweep - x: a sweep of 0.01 * sqrt(2/3) for the small part, more for the wide one.
    const struct {
        float xOfFirst, xOfSecond, widthOfSecond;
        int primary;
    } rows[] = {{0, 0, 0.01f, 0}, {0, -0.5f, 0.01f, 1}, {0, 0.5f, 0.5f, 1}, {0, 9, 0.5f, 0}};
    for (const auto& row : rows) {
        ModelBuilder builder;
        std::vector<int> yokes;
        for (float x : {row.xOfFirst, row.xOfSecond}) {
            const int node = builder.Node(0, "YOKE X POSITION YOKE Y POSITION", kTurn);
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

TEST(InteractionDetectorTest, EventTypesFollowCallbackAndFlags) {
    using namespace MouseFlag;
    const struct {
        bool jump, twoCallbacks;
        std::uint32_t flags;
        TouchEventType event;
    } rows[] = {
        {true, true, RightSingle | RightRelease, TouchEventType::LClickLClick},
        {true, false, RightSingle | RightRelease, TouchEventType::LClickRClick},
        {false, false, RightSingle | RightRelease, TouchEventType::LClickRClick},
        {true, false, RightSingle | LeftRelease, TouchEventType::Wheel},
    };
    for (const auto& row : rows) {
        ModelBuilder builder;
        builder.Part(0, kSmall);
        MouseRect& rect = builder.Rect(3);
        rect.MouseFlags = row.flags;
        if (row.jump) {
            auto callback = std::make_shared<CallbackJumpDragging>();
            callback->TwoCallbacks = row.twoCallbacks;
            rect.VariableCallback = callback;
        }
        EXPECT_EQ(PartOf(*Detected(builder), 0).EventType, row.event) << row.flags;
    }
}

} // namespace
