#include "Rendering/Camera.h"

#include <gtest/gtest.h>
#include <numbers>

namespace {

using Utils::Vector3;

constexpr float kQuarter = std::numbers::pi_v<float> / 2.0f;

struct Row {
    const char* name;
    Vector3 rotation;   ///< pitch, roll, yaw
    Vector3 fromCamera; ///< in world axes
    Vector3 seenAt;     ///< view space: right, up, ahead
};

// The camera turns in left-handed axes (x right, y up, z ahead): yaw to the right, pitch down, roll clockwise.
const Row kRows[] = {
    {"no turn", {0, 0, 0}, {0, 0, 1}, {0, 0, 1}},
    {"a quarter of yaw looks along x", {0, 0, kQuarter}, {1, 0, 0}, {0, 0, 1}},
    {"a quarter of pitch looks down", {kQuarter, 0, 0}, {0, -1, 0}, {0, 0, 1}},
    {"a quarter of roll has down on its right", {0, kQuarter, 0}, {0, -1, 0}, {1, 0, 0}},
    {"pitch comes before yaw", {kQuarter, 0, kQuarter}, {1, 0, 0}, {0, 1, 0}},
    {"roll comes before pitch", {kQuarter, kQuarter, 0}, {0, 0, -1}, {1, 0, 0}},
    {"all three", {kQuarter, kQuarter, kQuarter}, {-1, 0, 0}, {1, 0, 0}},
};

TEST(CameraTest, TransformsTheWorldByPositionAndRotation) {
    for (const Row& row : kRows) {
        Rendering::Camera camera;
        camera.SetPosition({1, 2, 3}); // (1, 2, -3) in the world
        camera.SetRotation(row.rotation);
        const Vector3 seen = Utils::TransformPoint(Vector3(Vector3(1, 2, -3) + row.fromCamera), camera.ViewMatrix());
        EXPECT_LT(Utils::Length(seen - row.seenAt), 1e-5f) << row.name << ": seen at " << seen;
    }
}

} // namespace
