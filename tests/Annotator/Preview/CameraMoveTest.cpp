#include "Annotator/Preview/CameraMove.h"

#include <gtest/gtest.h>

namespace Annotator {
namespace {

using Utils::Vector3;

constexpr float kFullTurn = 6.2831853f;

TEST(CameraMove, TakesAQuarterOfASecondFromItsFirstFrame) {
    Rendering::Camera camera;
    camera.SetPosition({1, 0, 0});
    CameraMove move;
    move.Start(camera, {{5, 2, -4}, {0.5f, 0, 1}});
    move.Advance(camera, 9.0f);
    EXPECT_EQ(camera.Position(), Vector3(1, 0, 0)) << "the time before the move";
    move.Advance(camera, 0.0625f);
    EXPECT_LT(camera.Position().x(), 2.0f) << "it starts slowly: less than a quarter of the way";
    move.Advance(camera, 0.0625f);
    EXPECT_TRUE(camera.Position().isApprox(Vector3(3, 1, -2))) << camera.Position();
    EXPECT_TRUE(camera.Rotation().isApprox(Vector3(0.25f, 0, 0.5f))) << camera.Rotation();
    move.Advance(camera, 0.12f);
    EXPECT_TRUE(move.IsRunning());
    move.Advance(camera, 0.01f);
    EXPECT_FALSE(move.IsRunning());
    EXPECT_EQ(camera.Position(), Vector3(5, 2, -4));
    EXPECT_EQ(camera.Rotation(), Vector3(0.5f, 0, 1));
    camera.SetPosition({7, 7, 7});
    move.Advance(camera, 1.0f);
    EXPECT_EQ(camera.Position(), Vector3(7, 7, 7)) << "it has ended";
}

TEST(CameraMove, TurnsTheShorterWay) {
    const struct {
        float from, to, halfway;
    } rows[] = {{3, -3, 3 + (kFullTurn - 6) / 2 - kFullTurn}, {0.2f, 1, 0.6f}, {2 * kFullTurn + 1, 0, 0.5f}};
    for (const auto& row : rows) {
        Rendering::Camera camera;
        camera.SetRotation({0, 0, row.from});
        CameraMove move;
        move.Start(camera, {.rotation = {0, 0, row.to}});
        move.Advance(camera, 0);
        move.Advance(camera, kMoveSeconds / 2);
        EXPECT_NEAR(camera.Rotation().z(), row.halfway, 1e-5f) << row.from << " to " << row.to;
    }
}

} // namespace
} // namespace Annotator
