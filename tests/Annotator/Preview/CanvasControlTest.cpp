#include "Annotator/Preview/CanvasControl.h"

#include <functional>
#include <gtest/gtest.h>
#include <random>

namespace Annotator {
namespace {

using Utils::Vector3;

constexpr int kLeft = 314, kUp = 315, kRight = 316, kDown = 317;

struct PointerLog : Clickable {
    void OnMouseEvent(const CanvasMouseEvent& event) override {
        events.push_back(event);
        if (then)
            then();
    }

    std::vector<CanvasMouseEvent> events;
    std::function<void()> then;
};

void ExpectNear(const Vector3& found, const Vector3& expected, const std::string& what, float tolerance = 1e-5f) {
    EXPECT_TRUE((found - expected).cwiseAbs().maxCoeff() <= tolerance)
        << what << ": found " << found << ", expected " << expected;
}

/// The position of a camera from the origin after one second with these keys held.
Vector3 MoveOf(const Vector3& rotation, const std::vector<int>& keys) {
    CanvasControl control;
    control.camera.SetRotation(rotation);
    for (const int key : keys)
        EXPECT_TRUE(control.SetKey(key, true)) << key;
    control.MoveCamera(1.0f);
    return control.camera.Position();
}

TEST(CanvasControl, MovesAgreeWithTheViewMatrixAtAnyRotation) {
    std::mt19937 random(7);
    std::uniform_real_distribution<float> angle(-7.0f, 7.0f);
    for (int i = 0; i < 200; ++i) {
        const Vector3 rotation(angle(random), angle(random), angle(random));
        Rendering::Camera camera;
        camera.SetRotation(rotation);
        const Utils::Matrix4 view = camera.ViewMatrix();
        const auto inView = [&](int key) {
            const Vector3 move = MoveOf(rotation, {key});
            return Utils::TransformPoint({move.x(), move.y(), -move.z()}, view);
        };
        const std::pair<char, Vector3> rows[] = {{'W', {0, 0, 1}},  {'S', {0, 0, -1}}, {'D', {1, 0, 0}},
                                                 {'A', {-1, 0, 0}}, {'Z', {0, 1, 0}},  {'X', {0, -1, 0}}};
        for (const auto& [key, way] : rows)
            ExpectNear(inView(key), way, std::string(1, key));
    }
}

TEST(CanvasControl, OpposedKeysHaveAWinnerAndOthersAddUp) {
    const Vector3 level = Vector3::Zero();
    ExpectNear(MoveOf(level, {'S', 'W'}), {0, 0, -1}, "W beats S");
    ExpectNear(MoveOf(level, {'D', 'A'}), {-1, 0, 0}, "A beats D");
    ExpectNear(MoveOf(level, {'X', 'Z'}), {0, 1, 0}, "Z beats X");
    ExpectNear(MoveOf(level, {kUp, kRight}), {1, 0, -1}, "arrows");
    ExpectNear(MoveOf(level, {kDown, kLeft}), {-1, 0, 1}, "arrows back");
}

TEST(CanvasControl, AKeyMovesUntilItIsUp) {
    CanvasControl control;
    control.SetKey('W', true);
    control.SetKey('D', true);
    control.MoveCamera(0.25f);
    control.SetKey('W', false);
    control.MoveCamera(0.5f);
    control.ReleaseKeys();
    control.MoveCamera(1.0f);
    ExpectNear(control.camera.Position(), {0.75f, 0, -0.25f}, "W for 0.25 s, D for 0.75 s");
    for (const int unused : {int('w'), 27, 318, -1})
        EXPECT_FALSE(control.SetKey(unused, true)) << unused;
}

TEST(CanvasControl, AMoveEndsEarlyByAKeyADragOrALoad) {
    const std::pair<const char*, std::function<void(CanvasControl&)>> rows[] = {
        {"held key", [](CanvasControl& control) { control.SetKey('W', true); }},
        {"drag",
         [](CanvasControl& control) {
             control.Motion({1, 1}, true);
         }},
        {"load", [](CanvasControl& control) { control.StopMove(); }},
        {"nothing",
         [](CanvasControl& control) {
             control.Press({1, 1});
         }},
    };
    for (const auto& [name, act] : rows) {
        CanvasControl control;
        control.MoveTo({.position = {8, 0, 0}});
        control.MoveCamera(0);
        control.MoveCamera(kMoveSeconds / 2);
        act(control);
        control.MoveCamera(1);
        EXPECT_NEAR(control.camera.Position().x(), std::string(name) == "nothing" ? 8 : 4, 1e-5f) << name;
    }
}

struct CanvasPointer : testing::Test {
    CanvasPointer() {
        control.Resize({800, 400});
        control.clickables = {first, second};
    }

    CanvasControl control;
    std::shared_ptr<PointerLog> first = std::make_shared<PointerLog>(), second = std::make_shared<PointerLog>();
};

TEST_F(CanvasPointer, ADragRotatesTheViewWithoutEvents) {
    control.camera.SetRotation({0, 0.5f, 0});
    control.Press({100, 100});
    control.Motion({300, 100}, true);
    ExpectNear(control.camera.Rotation(), {0, 0.5f, 0.5f}, "a quarter of the width to the right");
    control.Motion({300, 300}, true);
    ExpectNear(control.camera.Rotation(), {1.0f, 0.5f, 0.5f}, "half the height down");
    control.Release({300, 300});
    EXPECT_TRUE(first->events.empty());
    control.Press({0, 0}); // elsewhere: the motion to this point is not a drag
    control.Motion({-1600, 0}, true);
    ExpectNear(control.camera.Rotation(), {1.0f, 0.5f, -3.5f}, "two widths to the left from the new press on");
}

TEST_F(CanvasPointer, APressAndReleaseIsOneClickEvenIfItOpensADialog) {
    first->then = [this] { control.Release({1, 1}); };
    control.Release({5, 5});
    EXPECT_TRUE(first->events.empty()) << "a release without a press";
    control.Press({400, 200});
    control.Motion({400, 200}, false);
    control.Release({400, 200});
    control.Release({400, 200});
    ASSERT_EQ(first->events.size(), 2u);
    EXPECT_EQ(first->events[0].type, 1);
    EXPECT_EQ(first->events[1].type, 0);
    EXPECT_EQ(second->events.size(), 2u);
}

TEST_F(CanvasPointer, RaysPassThroughThePointer) {
    control.camera.SetPosition({1, 2, 3});
    const struct {
        CanvasPoint pointer;
        float x, y; // intersection of the ray with the clip square, whose top is y = 1
    } rows[] = {{{400, 200}, 0, 0}, {{0, 0}, -1, 1}, {{800, 400}, 1, -1}, {{600, 300}, 0.5f, -0.5f}};
    for (const auto& row : rows) {
        control.Motion(row.pointer, false);
        const CanvasMouseEvent& event = first->events.back();
        const Vector3 direction = event.ray.direction;
        ExpectNear(event.ray.origin, {0, 0, 0}, "origin");
        EXPECT_NEAR(Utils::Length(direction), 1.0f, 1e-6f);
        EXPECT_GT(direction.z(), 0.0f);
        // A field of view of 1 radian reaches tan(0.5) up at distance 1, and twice that to the side at 800 x 400.
        ExpectNear(direction / direction.z(), {row.x * 2 * std::tan(0.5f), row.y * std::tan(0.5f), 1}, "through");
        EXPECT_EQ(event.view, control.camera.ViewMatrix());
        EXPECT_EQ(event.projection, control.projection);
    }
}

TEST_F(CanvasPointer, ACanvasWithoutPixelsWorks) {
    control.Resize({0, -3});
    control.Press({0, 0});
    control.Motion({1, 1}, true);
    control.Motion({1, 1}, false);
    EXPECT_TRUE(control.projection.allFinite());
    EXPECT_TRUE(control.camera.Rotation().allFinite());
    EXPECT_TRUE(first->events.back().ray.direction.allFinite());
    ExpectNear(control.camera.Rotation(), {2, 0, 2}, "one pixel is the whole canvas");
}

} // namespace
} // namespace Annotator
