#include "Annotator/Preview/PreviewPicture.h"

#include "Annotator/Preview/Framing.h"
#include "Support/DataFolder.h"
#include "Support/ModelBuilder.h"
#include "Support/RecordingContext.h"

#include <gtest/gtest.h>
#include <numbers>
#include <stdexcept>

namespace Annotator {
namespace {

using Support::DrawCall;
using Utils::Matrix4;
using Utils::Vector3;

/// The bounds of the points in an image, whose own bounds are -1 and 1. The third coordinate is depth.
std::pair<Vector3, Vector3> Shown(const std::vector<Vector3>& points, const DrawCall& draw) {
    Vector3 least = Vector3::Constant(9), greatest = Vector3::Constant(-9);
    for (const Vector3& point : points) {
        const Utils::Vector4 at = Utils::Vector4(point.x(), point.y(), point.z(), 1) * draw.view * draw.projection;
        least = least.cwiseMin(at.head<3>() / at.w());
        greatest = greatest.cwiseMax(at.head<3>() / at.w());
    }
    return {least, greatest};
}

/// A cockpit of a panel, a window pane and a slide that moves 4 m up, seen from (1, 2, -3) in the camera's axes.
struct Picture : testing::Test {
    Picture() {
        Support::BindDataFolder();
        Support::ModelBuilder builder;
        builder.Part(0, Support::TriangleAt(90));
        builder.Texture("glass.png");
        builder.model.materials.Children[1].Alpha = 0.5f;
        builder.Part(0, Support::TriangleAt(8)).MaterialIndex = 1;
        builder.Part(builder.Node(0, "sim/slide", Support::Slide(0, 4, 0)), Support::TriangleAt(0));
        auto cockpit = std::make_unique<Support::ModelCockpit>(builder.model);
        cockpit->modelOffset = {1, 0, 1};
        cockpit->pilotEye = {0, 2, 2};
        opened.cockpit = std::move(cockpit);
        built = BuildAircraft(opened);
        store = std::make_unique<CockpitModel::AnnotationStore>(*built.sceneGraph);
    }

    std::vector<DrawCall> Draw(const PictureRequest& request) {
        context.draws.clear();
        DrawPreviewPicture(context, request, opened, built, *store);
        return context.draws;
    }

    Support::RecordingContext context;
    OpenedAircraft opened;
    BuiltAircraft built;
    std::unique_ptr<CockpitModel::AnnotationStore> store;
};

TEST_F(Picture, LooksFromThePilotsEyeOrAsRequested) {
    const auto draws = Draw({});
    ASSERT_EQ(draws.size(), 3u);
    EXPECT_TRUE(draws[0].view.isApprox(Utils::Translation({-1, -2, -3}))) << draws[0].view;
    EXPECT_TRUE(draws[0].projection.isApprox(Utils::PerspectiveFov(1.0f, 1.6f, 0.05f, 30.0f)));

    PictureRequest request;
    request.size = {300, 300};
    request.eye = Vector3(0, 0, -5);
    request.look = Utils::Vector2(std::numbers::pi_v<float> / 2, 0); // to the right: +x is forward
    const DrawCall aside = Draw(request).at(0);
    EXPECT_TRUE(Utils::TransformPoint({7, 0, 5}, aside.view).isApprox(Vector3(0, 0, 7), 1e-5f));
    EXPECT_TRUE(aside.projection.isApprox(Utils::PerspectiveFov(1.0f, 1.0f, 0.05f, 30.0f)));
}

TEST_F(Picture, ShowsPositionsSelectionAndHiddenGlass) {
    PictureRequest request;
    request.positions = {{"sim/slide", 0.25f}};
    request.selected = {1, 0};
    request.showTransparent = false;
    const auto draws = Draw(request);
    ASSERT_EQ(draws.size(), 1u + 1 + 2 + 20);
    EXPECT_TRUE(draws[1].world.isApprox(Utils::Translation({0, 1, 0}))) << draws[1].world;
    EXPECT_EQ(draws[1].params.secondColour, Vector3(0, 0, 0.1f));
    for (const auto& part : built.sceneGraph->Nodes()[0]->parts)
        EXPECT_EQ(part->geometry, nullptr) << "it belongs to the device";
}

TEST_F(Picture, FitsTheCockpitOrAPart) {
    const std::vector<Vector3> slide{{0, 4, 0}, {1, 4, 0}, {0, 5, 0}};
    std::vector<Vector3> opaque = slide;
    opaque.insert(opaque.end(), {{0, 0, 90}, {1, 0, 90}, {0, 1, 90}});
    PictureRequest request;
    request.fit = true;
    request.positions = {{"sim/slide", 1.0f}};
    const auto expectFilled = [&](const std::vector<Vector3>& points, const char* how) {
        const auto [least, greatest] = Shown(points, Draw(request).at(0));
        const Vector3 nearer = greatest.cwiseMin(-least), farther = greatest.cwiseMax(-least);
        EXPECT_NEAR(std::max(nearer.x(), nearer.y()), 0.95f, 1e-3f) << how;
        EXPECT_LE(std::max(farther.x(), farther.y()), 0.951f) << how;
        EXPECT_TRUE(least.z() >= 0 && greatest.z() <= 1) << how << least << " to " << greatest;
    };
    expectFilled(opaque, "the glass is in the midst of it");
    request.look = Utils::Vector2(2.0f, -0.4f);
    request.size = {300, 600};
    expectFilled(opaque, "from the right, from below, narrow");
    request.selected = {1, 0};
    expectFilled(slide, "a part, as asked");
    request.look.reset();
    Draw(request);
    // From (1, 2, 3) to the middle of the slide, (0.5, 4.5, 0).
    EXPECT_TRUE(context.draws[0].view.col(2).head<3>().transpose().isApprox(Vector3(-0.5f, 2.5f, -3).normalized()));
}

TEST_F(Picture, KeepsADistanceFromSmallParts) {
    const auto framing = FramePoints({{0, 0, 5}, {0.002f, 0, 5}}, {}, 1.0f);
    EXPECT_TRUE(framing->pose.position.isApprox(Vector3(0.001f, 0, -4.9f))) << framing->pose.position;
    EXPECT_FALSE(FramePoints({}, {}, 1.0f));
}

} // namespace
} // namespace Annotator
