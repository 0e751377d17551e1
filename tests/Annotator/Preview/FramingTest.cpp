#include "Annotator/Preview/Framing.h"

#include "Annotator/Preview/CanvasControl.h"
#include "Support/ModelBuilder.h"

#include <gtest/gtest.h>

namespace Annotator {
namespace {

using CockpitModel::NodePart;
using Support::Corner;
using Utils::Matrix4;
using Utils::Vector3;

constexpr float kAspect = 1.5f;

/// A square across the view axis.
std::vector<Corner> Square(float x, float y, float z, float size) {
    const Corner a{x, y, z}, b{x + size, y, z}, c{x + size, y + size, z}, d{x, y + size, z};
    return {a, b, c, a, c, d};
}

struct FramingTest : testing::Test {
    void Touchable(const std::vector<Corner>& corners) {
        builder.Part(0, corners);
        builder.Rect(1);
    }

    void Load() { scene = std::make_unique<CockpitModel::SceneGraph>(builder.model, cockpit, nullptr); }
    const NodePart& Part(std::size_t index) { return *scene->Nodes()[0]->parts.at(index); }

    /// The largest distance of a corner of a part from the middle of the image, whose edge is at 1.
    float Reach(const Framing& framing, std::size_t index) {
        Rendering::Camera camera;
        camera.SetPosition(framing.pose.position);
        camera.SetRotation(framing.pose.rotation);
        const Matrix4 toClip =
            camera.ViewMatrix() * Utils::PerspectiveFov(kFieldOfView, kAspect, kNearPlane, kFarPlane);
        float reach = 0;
        for (const auto& vertex : Part(index).vertices) {
            const Vector3& at = vertex.position;
            const Utils::Vector4 clip = Utils::Vector4(at.x(), at.y(), at.z(), 1) * toClip;
            EXPECT_TRUE(clip.z() >= 0 && clip.z() <= clip.w()) << "between near and far plane";
            reach = std::max({reach, std::abs(clip.x() / clip.w()), std::abs(clip.y() / clip.w())});
        }
        return reach;
    }

    Support::ModelBuilder builder;
    Support::ModelCockpit cockpit;
    std::unique_ptr<CockpitModel::SceneGraph> scene;
};

TEST_F(FramingTest, APartTakesAThirdOfTheViewSeenFromThePilotsSide) {
    builder.Part(0, Square(2, -3, 4, 0.4f));
    Load();
    const Vector3 eye(0.2f, 0.2f, -1); // the camera's z is opposite
    const Framing framing = FramePart(*scene, Part(0), eye, kAspect).value();
    EXPECT_NEAR(Reach(framing, 0), 1.0f / 3, 1e-4f);
    const Vector3 middle(2.2f, -2.8f, -4), place = framing.pose.position;
    EXPECT_NEAR((place - middle).normalized().dot((eye - middle).normalized()), 1.0f, 1e-3f) << place;
}

TEST_F(FramingTest, TheCockpitIsWhatCanBeTouchedWithinTenMetresOfTheMedianPart) {
    builder.Part(0, Square(-9, -9, 8, 18)); // cannot be touched
    Touchable(Square(0, 0, 5, 1));
    Touchable(Square(2, 0, 6, 1));
    Touchable(Square(2, 9, 5, 0.8f)); // up to 9.4 m away from the median
    Touchable(Square(2, 0, 17, 1));   // 11 m behind it
    Touchable(Square(-6, -6, 6, 13)); // around it, with corners 10.6 m away
    Load();
    const Framing framing = FrameCockpit(*scene, kAspect).value();
    EXPECT_NEAR(std::max({Reach(framing, 1), Reach(framing, 2), Reach(framing, 3)}), 0.95f, 1e-4f);
    EXPECT_EQ(framing.pose.rotation, Vector3(0, 0, 0));
}

TEST_F(FramingTest, TheCameraIsInFrontOfAWallThatWouldHideTheCockpit) {
    Touchable(Square(-1, -1, 5, 2));
    builder.Part(0, Square(-9, -9, 4, 18));
    Load();
    // The square fills the view from 1.93 m = 1 / (0.95 tan 0.5); eighths of that are tried, the fourth is 0.96 m.
    EXPECT_NEAR(FrameCockpit(*scene, kAspect)->pose.position.z(), -4.04f, 0.01f);
    const CockpitModel::Material glass{.BlendKind = CockpitModel::kOpaqueBlend, .Alpha = 0.5f};
    scene->Nodes()[0]->parts[1]->material = &glass;
    EXPECT_NEAR(FrameCockpit(*scene, kAspect)->pose.position.z(), -3.07f, 0.01f) << "through a window";
}

TEST_F(FramingTest, ACockpitWithoutTouchablePartsIsFramedAsAWhole) {
    builder.Part(0, Square(-4, 0, 3, 8));
    builder.Part(0, Square(0, 0, 4, 0.1f));
    Load();
    EXPECT_NEAR(Reach(FrameCockpit(*scene, kAspect).value(), 0), 0.95f, 1e-4f);
}

TEST_F(FramingTest, TheCameraStaysWithin25Metres) {
    Touchable(Square(-100, -100, 8, 200));
    Load();
    EXPECT_TRUE(FrameCockpit(*scene, kAspect)->pose.position.isApprox(Vector3(0, 0, 17), 1e-5f)) << "8 - 25, mirrored";
    EXPECT_TRUE(FramePart(*scene, Part(0), {0, 8, -8}, kAspect)->pose.position.isApprox(Vector3(0, 25, -8), 1e-4f))
        << "from above";
}

TEST_F(FramingTest, SeesATriangleOfWhichAnyPointIsInView) {
    const struct {
        const char* name;
        std::vector<Corner> triangle;
        bool seen;
    } rows[] = {
        {"ahead", {{0, 0, 5}, {1, 0, 5}, {0, 1, 5}}, true},
        {"behind", {{0, 0, -5}, {1, 0, -5}, {0, 1, -5}}, false},
        {"too near", {{0, 0, 0.04f}, {0.01f, 0, 0.04f}, {0, 0.01f, 0.04f}}, false},
        {"too far", {{0, 0, 31}, {1, 0, 31}, {0, 1, 31}}, false},
        {"from behind to ahead", {{0, 0, -5}, {1, 0, -5}, {0, 0, 5}}, true},
        {"all corners outside, around the view", {{-99, -99, 5}, {99, -99, 5}, {0, 99, 5}}, true},
        // The image's edges are 5 tan(0.5) = 2.73 above and 4.10 to the right at this distance.
        {"beyond the corner, which each corner passes on another side", {{3, 4, 5}, {5, 2.2f, 5}, {5, 4, 5}}, false},
    };
    const Matrix4 projection = Utils::PerspectiveFov(kFieldOfView, kAspect, kNearPlane, kFarPlane);
    for (const auto& row : rows) {
        builder = {};
        builder.Part(0, row.triangle);
        Load();
        EXPECT_EQ(SeesAnyPart(
                      *scene, [](const NodePart&) { return true; }, Matrix4::Identity(), projection),
                  row.seen)
            << row.name;
    }
    EXPECT_FALSE(SeesAnyPart(
        *scene, [](const NodePart&) { return false; }, Utils::RotationY(1), projection));
}

} // namespace
} // namespace Annotator
