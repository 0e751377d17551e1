#include "Annotator/CockpitPreview.h"

#include "Support/DataFolder.h"
#include "Support/ModelBuilder.h"
#include "Support/RecordingContext.h"
#include "Support/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <numbers>

namespace Annotator {
namespace {

using CockpitModel::AnnotationRecord;
using CockpitModel::NodePart;
using CockpitModel::TouchInteractionType;
using Support::DrawCall;
using Utils::Matrix4;
using Utils::Vector3;

constexpr int kTransparentMaterial = 1;
const Matrix4 kIdentity = Matrix4::Identity();

/// A triangle across the view axis at a distance, whose corners have the mean (0, 0, distance).
std::vector<Support::Corner> Facing(float distance) {
    return {{-1, -1, distance}, {1, -1, distance}, {0, 2, distance}};
}

CanvasMouseEvent Pointer(std::int32_t type, const Vector3& direction = {0, 0, 1}) {
    CanvasMouseEvent event;
    event.type = type;
    event.ray.direction = direction;
    return event;
}

struct Preview : testing::Test {
    Preview() {
        Support::BindDataFolder();
        builder.Texture("glass.png");
        builder.model.materials.Children[kTransparentMaterial].Alpha = 0.5f;
        preview.partSignal.connect([this](NodePart* part) { clicked.push_back(part); });
    }

    /// Makes the scene of what the builder holds.
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

void ExpectColour(const Vector3& found, const Vector3& expected, const std::string& what) {
    EXPECT_TRUE(found.isApprox(expected, 1e-6f)) << what << ": found " << found << ", expected " << expected;
}

TEST_F(Preview, DrawsEachPartOnceWithItsNodesMatrixAndTexture) {
    folder.Write("panel.png", "");
    builder.Part(0, Facing(3));
    const int child = builder.Node(0);
    PlaceNode(child, {1, 2, 3});
    builder.Part(child, Facing(4)).MaterialIndex = kTransparentMaterial;
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
        EXPECT_EQ(draw.view, view) << i;
        EXPECT_EQ(draw.projection, projection) << i;
        EXPECT_FALSE(draw.hasFurtherBitmaps) << i;
        EXPECT_TRUE(draw.params.singleView && !draw.params.leftEye && !draw.params.rightEye) << i;
        EXPECT_EQ(draw.params.shaderParam1, 1.0f) << i;
        EXPECT_TRUE(draw.params.effect.empty()) << i;
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
    const Vector3 plainFirst(0.3f, 0.3f, 0.3f), plainSecond(0.7f, 0.7f, 0.7f);
    const Vector3 rectFirst(0.4f, 0.4f, 0.7f), rectSecond(0.1f, 0.1f, 0.3f);
    const Vector3 red(1, 0, 0), green(0.3f, 0.7f, 0.3f), yellow(1, 1, 0.5f);
    AnnotationRecord tests, overrides;
    tests.InteractionTypeTest = tap;
    overrides.InteractionType = tap;
    const struct {
        const char* name;
        bool rect, glass, selected, hovered;
        TouchInteractionType detected;
        std::optional<AnnotationRecord> annotation;
        Vector3 first, second;
        bool halfOpaque;
    } rows[] = {
        {"plain", false, false, false, false, twist, {}, plainFirst, plainSecond, false},
        {"rectangle", true, false, false, false, twist, {}, rectFirst, rectSecond, false},
        {"glass", false, true, false, false, twist, {}, plainFirst, plainSecond, true},
        {"failing", true, false, false, false, twist, tests, red, rectSecond, false},
        {"passing", false, false, false, false, tap, tests, green, plainSecond, false},
        {"override only", true, false, false, false, primary, overrides, rectFirst, rectSecond, false},
        {"primary yoke", false, false, false, false, primary, {}, yellow, plainSecond, false},
        {"failing yoke", false, false, false, false, primary, tests, red, plainSecond, false},
        {"failing glass", true, true, false, false, twist, tests, rectFirst, rectSecond, true},
        {"yoke of glass", false, true, false, false, primary, {}, plainFirst, plainSecond, true},
        {"hovered, failing, glass", true, true, false, true, twist, tests, {0.7f, 0.7f, 1}, {0.3f, 0.3f, 0}, false},
    };
    builder.Part(0, Facing(3));
    builder.Rect(1);
    Load();
    NodePart& part = Part(0);
    CockpitModel::MouseRect* const rect = part.Rect();
    CockpitModel::Material glass{.Alpha = 0.5f}, solid{.BlendKind = 2, .Alpha = 0.9f};
    for (const auto& row : rows) {
        part.block.mouseRect = row.rect ? rect : nullptr;
        part.material = row.glass ? &glass : &solid;
        part.InteractionType = row.detected;
        store->Set(part, row.annotation);
        preview.OnMouseEvent(Pointer(1, {0, 0, row.hovered ? 1.0f : -1.0f}));
        const auto& params = Draw().at(0).params;
        ExpectColour(params.firstColour, row.first, row.name);
        ExpectColour(params.secondColour, row.second, row.name);
        EXPECT_EQ(params.opacity, row.halfOpaque ? 0.5f : 1.0f) << row.name;
        EXPECT_EQ(params.blend, row.halfOpaque) << row.name;
    }
}

TEST_F(Preview, TheSelectionHasItsColoursWhateverElseHolds) {
    builder.Part(0, Facing(3)).MaterialIndex = kTransparentMaterial;
    builder.Rect(1);
    Load();
    AnnotationRecord record;
    record.InteractionTypeTest = TouchInteractionType::Radio;
    store->Set(Part(0), record);
    preview.OnMouseEvent(Pointer(1));
    preview.SetSelectedPart(&Part(0));
    const auto& params = Draw().at(0).params;
    EXPECT_EQ(params.firstColour.x(), 0.0f);
    EXPECT_EQ(params.firstColour.y(), 0.0f);
    EXPECT_GE(params.firstColour.z(), 0.7f);
    ExpectColour(params.secondColour, {0, 0, 0.1f}, "second");
    EXPECT_EQ(params.opacity, 1.0f);
    EXPECT_FALSE(params.blend);
}

TEST(SelectionBlue, DipsAndRestsBelowItsStart) {
    EXPECT_FLOAT_EQ(SelectionBlue(0.0), 1.0f);
    EXPECT_FLOAT_EQ(SelectionBlue(std::numbers::pi / 16), 0.85f); // cos(pi / 2) is 0
    EXPECT_FLOAT_EQ(SelectionBlue(std::numbers::pi / 8), 0.7f);   // cos(pi) is -1
    EXPECT_NEAR(SelectionBlue(0.625), 0.89255f, 1e-4f);           // cos(5) is 0.28366
    EXPECT_EQ(SelectionBlue(1000.0), SelectionBlue(0.625));
}

TEST_F(Preview, SelectingAgainRestartsThePulse) {
    constexpr double aged = 0.05; // seconds; from here on the pulse stays below its value here
    builder.Part(0, Facing(3));
    Load();
    preview.SetSelectedPart(&Part(0));
    Utils::Timer timer;
    while (timer.Elapsed() < aged)
        ;
    EXPECT_LE(Draw().at(0).params.firstColour.z(), SelectionBlue(aged));
    timer.ElapsedAndRestart();
    preview.SetSelectedPart(&Part(0));
    const float blue = Draw().at(0).params.firstColour.z();
    EXPECT_GE(blue, SelectionBlue(std::min(timer.Elapsed(), std::numbers::pi / 8)));
}

/// A part that an animation carries 10 m ahead, below a node that stands 1 m to the right.
struct PreviewOfLever : Preview {
    PreviewOfLever() {
        const int stand = builder.Node(0);
        PlaceNode(stand, {1, 0, 0});
        const int lever = builder.Node(
            stand, Support::Animation("sim/lever",
                                      {{Support::TranslationKey(0, 0, 0, 0), Support::TranslationKey(100, 0, 0, 10)}}));
        builder.Part(lever, {{0, 0, 0}, {0.5f, 0, 0}, {0, 2, 0}});
        builder.Part(lever, {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}});
        Load();
        selected = &Part(2);
        preview.SetSelectedPart(selected);
    }

    NodePart* selected = nullptr;
};

Vector3 PlaceOf(const DrawCall& draw) {
    return draw.world.row(3).head<3>();
}

TEST_F(PreviewOfLever, MarksTheSelectedPartWithSpheres) {
    source.animations[2].position = 0.5f;
    selected->AxisTip = {0, 3, 0};
    const auto& draws = Draw();
    ASSERT_EQ(draws.size(), 1u + 2 + 20 + 1); // the part, two markers, the path, the other part
    const DrawCall& green = draws[1];
    const DrawCall& red = draws[2];
    ExpectColour(green.params.firstColour, {0.1f, 0.5f, 0.1f}, "green");
    ExpectColour(green.params.secondColour, {0.1f, 0.5f, 0.1f}, "green");
    EXPECT_TRUE(PlaceOf(green).isApprox(Vector3(1, 3, 5))) << PlaceOf(green);
    EXPECT_TRUE(PlaceOf(red).isApprox(Vector3(1, 2, 5))) << PlaceOf(red); // the corner farthest from the node's origin
    for (std::size_t i = 1; i <= 22; ++i) {
        EXPECT_EQ(draws[i].geometry, draws[1].geometry) << i;
        EXPECT_EQ(draws[i].bitmap, context.loadedBitmaps.at(0)) << i;
        EXPECT_TRUE(draws[i].params.blend) << i;
        EXPECT_EQ(draws[i].params.opacity, i <= 2 ? 1.0f : 0.5f) << i;
        EXPECT_NEAR(draws[i].world(0, 0), 0.1f, 1e-6f) << i;
        if (i >= 2) {
            ExpectColour(draws[i].params.firstColour, {0.5f, 0.1f, 0.1f}, "red");
            ExpectColour(draws[i].params.secondColour, {0.5f, 0.1f, 0.1f}, "red");
        }
    }
    for (std::size_t i = 0; i < 20; ++i)
        EXPECT_NEAR(PlaceOf(draws[3 + i]).z(), 0.5f * float(i), 1e-4f) << i;
    // What the markers changed does not reach the next part.
    EXPECT_EQ(draws[23].geometry, Part(2, 1).geometry.get());
    EXPECT_EQ(draws[23].params.opacity, 1.0f);
    EXPECT_FALSE(draws[23].params.blend);
    ExpectColour(draws[23].params.firstColour, {0.3f, 0.3f, 0.3f}, "next part");
}

TEST_F(PreviewOfLever, SpinsTheGreenMarkerAboutTheAxis) {
    // About z by an angle a, a row-vector turn has (cos a, sin a) in its first row.
    selected->RotationAxis = {0, 0, 1};
    const float start = Draw().at(1).world(0, 1);
    EXPECT_GT(start, 0.0f) << "the clock runs from the start";
    EXPECT_GT(Draw().at(1).world(0, 1), start);
    preview.StopClock(2.0);
    const Matrix4 world = Draw().at(1).world;
    EXPECT_NEAR(world(0, 0), 0.1f * std::cos(2.0f), 1e-6f);
    EXPECT_NEAR(world(0, 1), 0.1f * std::sin(2.0f), 1e-6f);
    EXPECT_NEAR(world(2, 2), 0.1f, 1e-6f);

    selected->RotationAxis = Vector3::Zero();
    EXPECT_EQ((Draw().at(1).world.topLeftCorner<3, 3>()), (Utils::Scaling(0.1f).topLeftCorner<3, 3>()));
}

TEST_F(Preview, APartWithoutARealAnimationHasNoPath) {
    const int dummy = builder.Node(0, Support::Animation("Dummy Animation", {{Support::TranslationKey(0, 0, 0, 0),
                                                                              Support::TranslationKey(100, 0, 0, 0)}}));
    builder.Part(dummy, Facing(2));
    Load();
    preview.SetSelectedPart(&Part(1));
    EXPECT_EQ(Draw().size(), 3u);
}

TEST_F(Preview, HiddenTransparentPartsAreNeitherDrawnNorHit) {
    builder.Part(0, Facing(2)).MaterialIndex = kTransparentMaterial;
    builder.Part(0, Facing(3));
    Load();
    preview.OnMouseEvent(Pointer(0));
    preview.ShowTransparent(false);
    EXPECT_EQ(Draw().size(), 1u);
    EXPECT_EQ(context.draws[0].geometry, Part(0, 1).geometry.get());
    preview.OnMouseEvent(Pointer(0));
    EXPECT_EQ(clicked, (std::vector<NodePart*>{&Part(0, 0), &Part(0, 1)}));
    preview.SetSelectedPart(&Part(0, 0));
    EXPECT_EQ(Draw().size(), 1u) << "a hidden selection has no markers";
}

TEST_F(Preview, AClickFindsTheNearestPart) {
    builder.Part(0, Facing(7));
    const int near = builder.Node(0);
    PlaceNode(near, {0, 0, 3});
    builder.Part(near, Facing(1)); // at 4
    builder.Part(near, Facing(1)); // as far: the earlier one stays
    const int aside = builder.Node(near);
    PlaceNode(aside, {5, 0, 0});
    builder.Part(aside, Facing(1));
    Load();
    Draw();
    preview.OnMouseEvent(Pointer(1));
    EXPECT_EQ(preview.HoveredPart(), &Part(1, 0));
    EXPECT_TRUE(clicked.empty()) << "the pointer only moved";
    preview.OnMouseEvent(Pointer(0));
    EXPECT_EQ(clicked, std::vector<NodePart*>{&Part(1, 0)});

    CanvasMouseEvent event = Pointer(0);
    event.view = Utils::Translation({-5, 0, 0}); // the camera stands 5 m to the right
    preview.OnMouseEvent(event);
    EXPECT_EQ(clicked.back(), &Part(2));
    event.view = Utils::RotationY(std::numbers::pi_v<float>); // and looks back
    preview.OnMouseEvent(event);
    EXPECT_EQ(clicked.size(), 2u) << "a click on the background";
    EXPECT_EQ(preview.HoveredPart(), nullptr);
}

TEST_F(Preview, AFrameShowsThePositionsOfTheModelAtOnce) {
    const int slide = builder.Node(0, Support::Animation("sim/slide", {{Support::TranslationKey(0, 0, 0, 0),
                                                                        Support::TranslationKey(100, 0, 4, 0)}}));
    builder.Part(slide, Facing(2));
    Load();
    source.animations[1].position = 0.25f;
    EXPECT_TRUE(PlaceOf(Draw().at(0)).isApprox(Vector3(0, 1, 0))) << PlaceOf(context.draws[0]);
}

TEST_F(Preview, EventsInsideAFrameOrAVisitReturnAtOnce) {
    builder.Part(0, Facing(2));
    builder.Part(0, Facing(3));
    Load();
    context.duringDraw = [this] {
        preview.OnMouseEvent(Pointer(0));
        preview.Render(context, kIdentity, kIdentity);
    };
    EXPECT_EQ(Draw().size(), 2u);
    EXPECT_TRUE(clicked.empty());

    // A listener of the signal runs after the visit, so a frame of a dialog that it opens is drawn.
    context.duringDraw = nullptr;
    context.draws.clear();
    preview.partSignal.connect([this](NodePart*) { preview.Render(context, kIdentity, kIdentity); });
    preview.OnMouseEvent(Pointer(0));
    EXPECT_EQ(context.draws.size(), 2u);
}

TEST_F(Preview, ADrawThatThrowsLeavesThePreviewUsable) {
    builder.Part(0, Facing(2));
    Load();
    context.duringDraw = [] { throw std::runtime_error("lost"); };
    EXPECT_THROW(Draw(), std::runtime_error);
    context.duringDraw = nullptr;
    EXPECT_EQ(Draw().size(), 1u);
}

TEST_F(Preview, MakesItsResourcesAgainForANewDeviceAndAfterARelease) {
    builder.Part(0, Facing(2));
    Load();
    preview.SetSelectedPart(&Part(0));
    Draw();
    Draw();
    EXPECT_EQ(context.loadedPaths.size(), 1u) << "loaded once";

    Support::RecordingContext other;
    preview.Render(other, kIdentity, kIdentity);
    EXPECT_EQ(other.loadedPaths.size(), 1u);
    EXPECT_TRUE(other.IsGeometryValid(Part(0).geometry.get()));
    for (const DrawCall& draw : other.draws)
        EXPECT_TRUE(other.IsBitmapValid(draw.bitmap) && other.IsGeometryValid(draw.geometry));

    preview.ReleaseGpuResources();
    EXPECT_EQ(Part(0).geometry, nullptr);
    preview.Render(other, kIdentity, kIdentity);
    EXPECT_EQ(other.loadedPaths.size(), 2u);
    EXPECT_EQ(other.draws.size(), 6u);
}

TEST_F(Preview, DoesNothingWithoutAScene) {
    EXPECT_TRUE(Draw().empty());
    preview.OnMouseEvent(Pointer(0));
    builder.Part(0, Facing(2));
    Load();
    EXPECT_EQ(Draw().size(), 1u);
    preview.SetScene(nullptr, nullptr, nullptr);
    EXPECT_TRUE(Draw().empty());
    preview.OnMouseEvent(Pointer(0));
    EXPECT_TRUE(clicked.empty());
    preview.ReleaseGpuResources();
    EXPECT_TRUE(context.loadedPaths.size() == 1u) << "nothing is loaded without a scene";
}

} // namespace
} // namespace Annotator
