#include "Annotator/Preview/CockpitPreview.h"

#include "Support/DataFolder.h"
#include "Support/ModelBuilder.h"
#include "Support/ObjText.h"
#include "Support/RecordingContext.h"
#include "Support/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <numbers>
#include <sstream>

namespace Annotator {
namespace {

using CockpitModel::AnnotationRecord;
using CockpitModel::NodePart;
using CockpitModel::TouchInteractionType;
using Support::DrawCall;
using Support::Slide;
using Utils::Matrix4;
using Utils::Vector3;

constexpr int kGlassMaterial = 1;
const Eigen::IOFormat kInARow(Eigen::StreamPrecision, Eigen::DontAlignCols, " ", " ");
const Matrix4 kIdentity = Matrix4::Identity();

/// A triangle across the view axis at a distance, whose corners have the mean (0, 0, distance).
std::vector<Support::Corner> Facing(float distance) {
    return {{-1, -1, distance}, {1, -1, distance}, {0, 2, distance}};
}

CanvasMouseEvent Pointer(CanvasEvent type, const Vector3& direction = {0, 0, 1}) {
    CanvasMouseEvent event;
    event.type = type;
    event.ray.direction = direction;
    return event;
}

Vector3 PlaceOf(const DrawCall& draw) {
    return draw.world.row(3).head<3>();
}

/// "<first colour> / <second colour>", with "opacity" and "blend" for a transparent draw.
std::string TintOf(const DrawCall& draw) {
    const auto& params = draw.params;
    std::ostringstream text;
    text << params.firstColour.format(kInARow) << " / " << params.secondColour.format(kInARow);
    if (params.opacity != 1.0f)
        text << ", opacity " << params.opacity;
    if (params.blend)
        text << ", blend";
    return std::move(text).str();
}

struct Preview : testing::Test {
    Preview() {
        Support::BindDataFolder();
        builder.Texture("glass.png");
        builder.model.materials.Children[kGlassMaterial].Alpha = 0.5f;
        preview.partSignal.connect([this](NodePart* part) { clicked.push_back(part); });
    }

    /// Creates the scene from the builder's content.
    void Load() {
        cockpit.textureFolder = folder.path.string();
        source = builder.model;
        scene = std::make_shared<CockpitModel::SceneGraph>(source, cockpit, nullptr);
        store = std::make_unique<CockpitModel::AnnotationStore>(*scene);
        preview.SetScene(scene, &source, store.get());
    }

    NodePart& Part(std::size_t node, std::size_t part = 0) { return *scene->Nodes()[node]->parts[part]; }

    const std::vector<DrawCall>& Draw() {
        context.draws.clear();
        preview.Render(context, kIdentity, kIdentity);
        return context.draws;
    }

    void PlaceNode(int node, const Vector3& offset) {
        builder.model.matrices.Children[static_cast<std::size_t>(node)] = Utils::Translation(offset);
    }

    Support::TemporaryFolder folder;
    Support::ModelBuilder builder;
    Support::ModelCockpit cockpit;
    Support::RecordingContext context;
    CockpitModel::ModelData source;
    std::shared_ptr<CockpitModel::SceneGraph> scene;
    std::unique_ptr<CockpitModel::AnnotationStore> store;
    std::vector<NodePart*> clicked;
    CockpitPreview preview;
};

TEST_F(Preview, DrawsEachPartOnceWithItsNodesMatrixAndTexture) {
    folder.Write("panel.png", "");
    builder.Part(0, Facing(3));
    const int child = builder.Node(0);
    PlaceNode(child, {1, 2, 3});
    builder.Part(child, Facing(4)).MaterialIndex = kGlassMaterial;
    builder.Part(child, Facing(5));
    Load();
    const Matrix4 view = Utils::Translation({0, -1, 0}), projection = Utils::PerspectiveFov(1, 1, 0.1f, 10);
    preview.Render(context, view, projection);

    ASSERT_EQ(context.draws.size(), 3u);
    const NodePart* const parts[] = {&Part(0), &Part(1, 0), &Part(1, 1)};
    for (std::size_t i = 0; i < 3; ++i) {
        const DrawCall& draw = context.draws[i];
        EXPECT_EQ(draw.geometry, parts[i]->geometry.get()) << i;
        EXPECT_EQ(draw.world, i == 0 ? kIdentity : Utils::Translation({1, 2, 3})) << i;
        EXPECT_TRUE(draw.view == view && draw.projection == projection) << i;
        EXPECT_TRUE(draw.params.singleView && !draw.params.leftEye && !draw.params.rightEye) << i;
    }
    // The first file loaded is the checker; "glass.png" does not exist.
    EXPECT_EQ(context.loadedPaths,
              (std::vector<std::string>{"QVRA/Images/checker.png", folder / std::string("panel.png")}));
    EXPECT_EQ(context.draws[0].bitmap, context.loadedBitmaps.at(1));
    EXPECT_EQ(context.draws[1].bitmap, context.loadedBitmaps.at(0));
}

TEST_F(Preview, TintsByTheFirstCaseThatHolds) {
    constexpr auto tap = TouchInteractionType::Tap, twist = TouchInteractionType::Twist;
    constexpr auto primary = TouchInteractionType::YokePrimary;
    const CockpitModel::Material solid{.BlendKind = CockpitModel::kOpaqueBlend, .Alpha = 0.9f},
        glass{.BlendKind = CockpitModel::kOpaqueBlend, .Alpha = 0.89f};
    enum Pointed { Elsewhere, Hovered, Selected };
    AnnotationRecord tests, overrides;
    tests.InteractionTypeTest = tap;
    overrides.InteractionType = tap;
    const struct {
        const char* name;
        bool rect;
        const CockpitModel::Material& material;
        Pointed pointed;
        TouchInteractionType detected;
        std::optional<AnnotationRecord> annotation;
        const char* tint;
    } rows[] = {
        {"plain", false, solid, Elsewhere, twist, {}, "0.3 0.3 0.3 / 0.7 0.7 0.7"},
        {"glass", false, glass, Elsewhere, twist, {}, "0.3 0.3 0.3 / 0.7 0.7 0.7, opacity 0.5, blend"},
        {"failing", true, solid, Elsewhere, twist, tests, "1 0 0 / 0.1 0.1 0.3"},
        {"passing", false, solid, Elsewhere, tap, tests, "0.3 0.7 0.3 / 0.7 0.7 0.7"},
        {"override only", true, solid, Elsewhere, primary, overrides, "0.4 0.4 0.7 / 0.1 0.1 0.3"},
        {"yoke", false, solid, Elsewhere, primary, {}, "1 1 0.5 / 0.7 0.7 0.7"},
        {"failing yoke", false, solid, Elsewhere, primary, tests, "1 0 0 / 0.7 0.7 0.7"},
        {"failing glass", true, glass, Elsewhere, twist, tests, "0.4 0.4 0.7 / 0.1 0.1 0.3, opacity 0.5, blend"},
        {"hovered, failing, glass", true, glass, Hovered, twist, tests, "0.7 0.7 1 / 0.3 0.3 0"},
        {"selected, failing, glass", true, glass, Selected, twist, tests, "0 0 0.7 / 0 0 0.1"},
    };
    preview.StopClock(std::numbers::pi / 8); // the minimum of the pulse
    builder.Part(0, Facing(3));
    builder.Rect(1);
    Load();
    NodePart& part = Part(0);
    CockpitModel::MouseRect* const rect = part.Rect();
    for (const auto& row : rows) {
        part.block.mouseRect = row.rect ? rect : nullptr;
        part.material = &row.material;
        part.InteractionType = row.detected;
        store->Set(part, row.annotation);
        preview.OnMouseEvent(Pointer(kCanvasMove, {0, 0, row.pointed == Elsewhere ? -1.0f : 1.0f}));
        preview.SetSelectedPart(row.pointed == Selected ? &part : nullptr);
        EXPECT_EQ(TintOf(Draw().at(0)), row.tint) << row.name;
    }
}

TEST_F(Preview, PaintsByTypeUnderSelectionAndHover) {
    for (int i = 0; i < 3; ++i)
        builder.Part(0, Facing(3.0f + static_cast<float>(i)));
    builder.Part(0, Facing(6)).MaterialIndex = kGlassMaterial;
    Load();
    preview.OnMouseEvent(Pointer(kCanvasMove)); // over part 0
    const std::string standard = TintOf(Draw().at(2)), glass = TintOf(Draw().at(3));
    for (int i = 0; i < 4; ++i)
        Part(0, static_cast<std::size_t>(i)).InteractionType = TouchInteractionType::Twist;
    AnnotationRecord overridden;
    overridden.InteractionType = TouchInteractionType::Tap;
    store->Set(Part(0, 3), overridden);
    preview.SetSelectedPart(&Part(0, 1));
    preview.ShowColours(PartColours::ByType);
    const auto draws = Draw();
    std::vector<const DrawCall*> parts;
    for (const DrawCall& draw : draws)
        if (draw.geometry != draws.at(2).geometry) // the markers' sphere
            parts.push_back(&draw);
    ASSERT_EQ(parts.size(), 4u);
    const auto colour = [](const DrawCall& draw) -> Vector3 {
        return draw.params.firstColour + draw.params.thirdColour + draw.params.fourthColour;
    };
    const auto legend = Legend(PartColours::ByType);
    EXPECT_TRUE(colour(*parts[2]).isApprox(legend[1].colour)) << "Twist";
    EXPECT_TRUE(colour(*parts[3]).isApprox(legend[0].colour)) << "Tap, by its override";
    EXPECT_EQ(parts[3]->params.opacity, 0.5f);
    EXPECT_EQ(colour(draws.at(2)), draws.at(2).params.firstColour) << "a marker";
    EXPECT_TRUE(colour(*parts[1]).x() == 0 && colour(*parts[1]).z() > 0.6f) << "selected: blue";
    EXPECT_GT(colour(*parts[0]).minCoeff(), 0.8f) << "under the pointer: almost white";
    preview.SetSelectedPart(nullptr);
    preview.ShowColours(PartColours::Standard);
    EXPECT_EQ(TintOf(Draw().at(2)), standard);
    EXPECT_EQ(TintOf(Draw().at(3)), glass);
    EXPECT_EQ(colour(Draw().at(2)), Rendering::GeometryDrawParams().firstColour) << "nothing is added";
}

/// A part that an animation moves 10 m forward, below a node 1 m to the right.
struct PreviewOfLever : Preview {
    PreviewOfLever() {
        const int stand = builder.Node(0);
        PlaceNode(stand, {1, 0, 0});
        const int lever = builder.Node(stand, "sim/lever", Slide(0, 0, 10));
        builder.Part(lever, {{0, 0, 0}, {0.5f, 0, 0}, {0, 2, 0}});
        builder.Part(lever, Support::TriangleAt(0));
        Load();
        selected = &Part(2);
        preview.SetSelectedPart(selected);
    }

    NodePart* selected = nullptr;
};

TEST_F(PreviewOfLever, MarksTheSelectedPartWithSpheres) {
    source.animations[2].position = 0.5f; // shown by the next frame
    selected->AxisTip = {0, 3, 0};
    const auto& draws = Draw();
    ASSERT_EQ(draws.size(), 1u + 2 + 20 + 1); // the part, two markers, the path, the other part
    EXPECT_EQ(TintOf(draws[1]), "0.1 0.5 0.1 / 0.1 0.5 0.1, blend");
    EXPECT_EQ(TintOf(draws[2]), "0.5 0.1 0.1 / 0.5 0.1 0.1, blend");
    EXPECT_TRUE(PlaceOf(draws[1]).isApprox(Vector3(1, 3, 5))) << PlaceOf(draws[1]);
    EXPECT_TRUE(PlaceOf(draws[2]).isApprox(Vector3(1, 2, 5))) << "the corner farthest from the node's origin";
    for (std::size_t i = 0; i < 20; ++i) {
        EXPECT_EQ(draws[3 + i].geometry, draws[1].geometry) << i;
        EXPECT_NEAR(draws[3 + i].world(0, 0), 0.1f, 1e-6f) << i;
        EXPECT_EQ(TintOf(draws[3 + i]), "0.5 0.1 0.1 / 0.5 0.1 0.1, opacity 0.5, blend") << i;
        EXPECT_NEAR(PlaceOf(draws[3 + i]).z(), 0.5f * float(i), 1e-4f) << i;
    }
    EXPECT_EQ(TintOf(draws[23]), "0.3 0.3 0.3 / 0.7 0.7 0.7") << "not affected by the markers";
}

TEST_F(PreviewOfLever, SpinsTheGreenMarkerAboutTheAxis) {
    // A row-vector rotation by an angle a about z has (cos a, sin a) in its first row.
    selected->RotationAxis = {0, 0, 1};
    EXPECT_GT(Draw().at(1).world(0, 1), 0.0f) << "the clock runs from the start";
    preview.StopClock(2.0);
    const Matrix4 world = Draw().at(1).world;
    EXPECT_NEAR(world(0, 0), 0.1f * std::cos(2.0f), 1e-6f);
    EXPECT_NEAR(world(0, 1), 0.1f * std::sin(2.0f), 1e-6f);
    selected->RotationAxis = Vector3::Zero();
    EXPECT_EQ((Draw().at(1).world.topLeftCorner<3, 3>()), (Utils::Scaling(0.1f).topLeftCorner<3, 3>()));
}

TEST_F(Preview, DrawsTheSurroundingsFirstAndClickBoxesLast) {
    builder.Part(0, Facing(3)).NotDrawn = true;
    builder.Rect(1);
    builder.Part(0, Facing(4));
    Load();
    CockpitModel::SurroundingObjects wall;
    wall.objects.push_back({"wall", folder.Write("wall.obj", Support::ObjText().Tris().Text())});
    preview.SetSurroundings(wall);
    preview.CompleteSurroundings(context);
    ASSERT_EQ(Draw().size(), 3u);
    const DrawCall &control = context.draws[1], &box = context.draws[2];
    EXPECT_EQ(control.geometry, Part(0, 1).geometry.get());
    EXPECT_EQ(box.geometry, Part(0, 0).geometry.get());
    EXPECT_EQ(TintOf(control), "0.3 0.3 0.3 / 0.7 0.7 0.7");
    EXPECT_EQ(TintOf(box), "0.4 0.4 0.7 / 0.1 0.1 0.3, opacity 0.5, blend");
    EXPECT_TRUE(control.params.depthWrite && !box.params.depthWrite);
    EXPECT_TRUE(control.bitmap && !box.bitmap);
    preview.OnMouseEvent(Pointer(kCanvasClick));
    EXPECT_EQ(clicked, std::vector<NodePart*>{&Part(0)}) << "the wall at 0 is not picked";

    preview.ShowSurroundings(false);
    preview.OnMouseEvent(Pointer(kCanvasMove, {0, 0, -1}));
    ASSERT_EQ(Draw().size(), 2u);
    EXPECT_EQ(TintOf(context.draws[0]), "0.4 0.4 0.7 / 0.1 0.1 0.3");
    preview.ShowSurroundings(true);
    preview.SetScene(scene, &source, store.get());
    EXPECT_EQ(Draw().size(), 2u) << "a new scene has none of the old one's";
}

TEST_F(Preview, HiddenTransparentPartsAreNeitherDrawnNorHit) {
    builder.Part(0, Facing(2)).MaterialIndex = kGlassMaterial;
    builder.Part(0, Facing(3));
    Load();
    preview.ShowTransparent(false);
    EXPECT_EQ(Draw().size(), 1u);
    EXPECT_EQ(context.draws[0].geometry, Part(0, 1).geometry.get());
    preview.OnMouseEvent(Pointer(kCanvasClick));
    EXPECT_EQ(clicked, std::vector<NodePart*>{&Part(0, 1)});
}

TEST_F(Preview, AClickFindsTheNearestPart) {
    builder.Part(0, Facing(7));
    const int near = builder.Node(0);
    PlaceNode(near, {0, 0, 3});
    builder.Part(near, Facing(1)); // at 4
    builder.Part(near, Facing(1)); // same distance: the first one is hit
    const int aside = builder.Node(near);
    PlaceNode(aside, {5, 0, 0});
    builder.Part(aside, Facing(1));
    Load();
    preview.OnMouseEvent(Pointer(kCanvasMove));
    EXPECT_EQ(preview.HoveredPart(), &Part(1, 0));
    preview.OnMouseEvent(Pointer(kCanvasClick));
    EXPECT_EQ(clicked, std::vector<NodePart*>{&Part(1, 0)});

    CanvasMouseEvent event = Pointer(kCanvasClick);
    event.view = Utils::Translation({-5, 0, 0}); // the camera is 5 m to the right
    preview.OnMouseEvent(event);
    EXPECT_EQ(clicked.back(), &Part(2));
    event.view = Utils::RotationY(std::numbers::pi_v<float>); // and looks back
    preview.OnMouseEvent(event);
    EXPECT_EQ(clicked.size(), 2u) << "a click on the background";
}

TEST_F(Preview, EventsInsideAFrameReturnImmediately) {
    builder.Part(0, Facing(2));
    builder.Part(0, Facing(3));
    Load();
    context.duringDraw = [this] {
        preview.OnMouseEvent(Pointer(kCanvasClick));
        preview.Render(context, kIdentity, kIdentity);
    };
    EXPECT_EQ(Draw().size(), 2u);
    EXPECT_TRUE(clicked.empty());

    // A listener of the signal runs after the visit, so frames of a dialog that it opens are drawn.
    context.duringDraw = nullptr;
    context.draws.clear();
    preview.partSignal.connect([this](NodePart*) { preview.Render(context, kIdentity, kIdentity); });
    preview.OnMouseEvent(Pointer(kCanvasClick));
    EXPECT_EQ(context.draws.size(), 2u);
}

TEST_F(Preview, MakesItsResourcesAgainForANewDeviceAndAfterARelease) {
    EXPECT_TRUE(Draw().empty());
    EXPECT_TRUE(context.loadedPaths.empty()) << "nothing is loaded without a scene";
    builder.Part(0, Facing(2));
    Load();
    preview.SetSelectedPart(&Part(0));
    Draw();
    Draw();
    EXPECT_EQ(context.loadedPaths.size(), 1u) << "loaded once";

    Support::RecordingContext other;
    preview.Render(other, kIdentity, kIdentity);
    EXPECT_EQ(other.loadedPaths.size(), 1u);
    for (const DrawCall& draw : other.draws)
        EXPECT_TRUE(other.IsBitmapValid(draw.bitmap) && other.IsGeometryValid(draw.geometry));

    preview.ReleaseGpuResources();
    EXPECT_EQ(Part(0).geometry, nullptr);
    preview.Render(other, kIdentity, kIdentity);
    EXPECT_EQ(other.loadedPaths.size(), 2u);

    preview.SetScene(nullptr, nullptr, nullptr);
    preview.OnMouseEvent(Pointer(kCanvasClick));
    EXPECT_TRUE(Draw().empty() && clicked.empty());
}

/// A device that fails in each of its calls in turn: the failure reaches the caller of the frame, and the frames after
/// it draw the same as without one.
TEST(FailingDevice, DoesNotDamageThePreviewAtAnyFailedCall) {
    Support::BindDataFolder();
    std::size_t wholeFrame = 0;
    int calls = 1;
    for (int failing = 0; failing <= calls; ++failing) { // 0 is no call
        Support::ModelBuilder builder;
        builder.Part(0, Facing(3));
        builder.Part(builder.Node(0, "sim/lever", Slide(0.2f, 0, 0)), Facing(2));
        const Support::ModelCockpit cockpit;
        const auto scene = std::make_shared<CockpitModel::SceneGraph>(builder.model, cockpit, nullptr);
        const CockpitModel::AnnotationStore store(*scene);
        CockpitPreview preview;
        preview.SetScene(scene, &builder.model, &store);
        preview.SetSelectedPart(scene->Nodes()[1]->parts[0].get());

        Support::RecordingContext context;
        int made = 0;
        context.beforeCall = [&] {
            if (++made == failing)
                throw std::runtime_error("lost");
        };
        const auto frame = [&] {
            context.draws.clear();
            preview.Render(context, kIdentity, kIdentity);
            return context.draws.size();
        };
        if (failing == 0) {
            wholeFrame = frame();
            calls = made;
            EXPECT_GT(wholeFrame, 20u) << "the selected part's markers";
        } else {
            EXPECT_THROW(frame(), std::runtime_error) << failing;
        }
        EXPECT_EQ(frame(), wholeFrame) << failing;
    }
}

} // namespace
} // namespace Annotator
