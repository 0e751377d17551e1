#include "CockpitModel/Panels/PanelParts.h"

#include "CockpitModel/NodePart.h"
#include "CockpitModel/Panels/PanelSet.h"
#include "CockpitModel/Picking/PartTree.h"
#include "CockpitModel/SceneGraph.h"
#include "CockpitModel/Touch/InteractionDetector.h"
#include "Support/ModelBuilder.h"
#include "Support/TestGaugeFile.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <sstream>

namespace CockpitModel {

namespace {

constexpr float kNone = std::numeric_limits<float>::quiet_NaN();
constexpr float kInfinite = std::numeric_limits<float>::infinity();

PanelEntry Entry(float u, float v, float width, float height) {
    PanelEntry entry;
    entry.U = u, entry.V = v, entry.Width = width, entry.Height = height;
    entry.Rect.Text = "rectangle";
    return entry;
}

/// The surface of all parts here: position as a function of texture coordinates.
Utils::Vector3 Surface(double u, double v) {
    return Utils::Vector3(static_cast<float>(2 * u - v + 1), static_cast<float>(3 * v), static_cast<float>(u + v - 5));
}

void AddTriangle(NodePart& part, std::initializer_list<Utils::Vector2> corners) {
    for (const Utils::Vector2& corner : corners) {
        Rendering::GeometryVertex vertex;
        vertex.texture = corner;
        vertex.position = Surface(corner.x(), corner.y());
        part.vertices.push_back(vertex);
    }
}

std::vector<Rendering::GeometryVertex> Clip(const PanelEntry& entry, const NodePart& part) {
    std::vector<PanelPartEntry> out;
    ClipEntryToPart(entry, part, out);
    EXPECT_LE(out.size(), 1u);
    return out.empty() ? std::vector<Rendering::GeometryVertex>() : out[0].vertices;
}

using Corner = Rendering::GeometryVertex;

double Cross(const Utils::Vector2& a, const Utils::Vector2& b, const Utils::Vector2& c) {
    return (double{b.x()} - a.x()) * (double{c.y()} - a.y()) - (double{b.y()} - a.y()) * (double{c.x()} - a.x());
}

double AreaOf(const std::vector<Corner>& soup) {
    double area = 0;
    for (std::size_t i = 0; i + 2 < soup.size(); i += 3)
        area += std::abs(Cross(soup[i].texture, soup[i + 1].texture, soup[i + 2].texture)) / 2;
    return area;
}

using Type = TouchInteractionType;

constexpr std::uint32_t kWheelAndRightClick = 0x80086000;

/// From the text of a configuration to detected parts. The only gauge, of 100 x 100 pixels, fills the panel, so that an
/// area's texture coordinates are its pixels / 100; the parts show texture coordinates equal to x and y.
class PanelLoadingTest : public testing::Test {
protected:
    PanelLoadingTest() {
        auto file = std::make_unique<Support::TestGaugeFile>();
        gauge = &file->gauges["gauge"];
        gauge->NativeSize = gauge->Size = {100, 100};
        repository.Add("file", std::move(file));
    }

    void Build() {
        std::istringstream stream("[VCockpit01]\nTexture=PANEL.png\nsize_mm=100,100\ngauge00=file!gauge,0,0\n");
        panels.Read(stream, repository);
        scene.emplace(builder.model, cockpit, &panels);
        InteractionDetector().Detect(*scene);
    }
    const std::vector<std::unique_ptr<NodePart>>& Parts(int node) {
        return scene->Nodes()[static_cast<std::size_t>(node)]->parts;
    }

    CockpitModel::Gauge* gauge = nullptr;
    GaugeRepository repository{"/"};
    PanelSet panels;
    Support::ModelBuilder builder;
    Support::ModelCockpit cockpit;
    std::optional<SceneGraph> scene;
};

} // namespace

TEST(ClipEntryToPart, LiftsThePartsOfAllTrianglesInTheRectangle) {
    NodePart part;
    AddTriangle(part, {{0, 0}, {1, 0}, {0, 1}});
    AddTriangle(part, {{5, 5}, {6, 5}, {5, 6}});
    AddTriangle(part, {{1, 1}, {0, 1}, {1, 0}});
    AddTriangle(part, {{0, 0}, {1, 0}});
    EXPECT_NEAR(AreaOf(Clip(Entry(-1, -1, 3, 3), part)), 1, 1e-6);
    EXPECT_NEAR(AreaOf(Clip(Entry(0.25f, 0.25f, 0.5f, 3), part)), 0.375, 1e-6);
    EXPECT_NEAR(AreaOf(Clip(Entry(5.5f, 5, 2, 2), part)), 0.125, 1e-6);
    Panel panel;
    panel.Entries = {Entry(2, 2, 1, 1), Entry(0, 0, 1, 1), Entry(5, 5, 1, 1)};
    panel.Entries[1].Rect.Text = "first";
    panel.Entries[2].Rect.Text = "second";
    std::vector<PanelPartEntry> out;
    panel.ProduceEntries(part, out);
    ASSERT_EQ(out.size(), 2u);
    EXPECT_EQ(out[0].rect.Text + ' ' + out[1].rect.Text, "first second");
    for (const auto& vertex : out[0].vertices) {
        EXPECT_EQ(vertex.normal, Utils::Vector3(0, 0, 1));
        const Utils::Vector3 lifted = Surface(vertex.texture.x(), vertex.texture.y()) - Utils::Vector3(0, 0, 0.001f);
        EXPECT_LT((vertex.position - lifted).norm(), 2e-6f);
    }
}

TEST(ClipEntryToPart, SkipsTrianglesThatShowNothing) {
    const std::initializer_list<Utils::Vector2> corners[] = {
        {{0, 0}, {0.0049f, 0}, {0, 1}}, // a short edge
        {{0, 0}, {0.5f, 0.5f}, {1, 1}}, // no area
        {{0, 0}, {1, kNone}, {0, 1}},   {{0, 0}, {1, 0}, {0, kInfinite}},
        {{0, 0}, {1, 0}, {0, -3e12f}}, // from 2^62 / 2000000 = 2.3e12 on
    };
    int row = 0;
    for (const auto& triangle : corners) {
        NodePart part;
        AddTriangle(part, triangle);
        EXPECT_TRUE(Clip(Entry(-1, -1, 3, 3), part).empty()) << "triangle " << row++;
        AddTriangle(part, {{0, 0}, {1, 0}, {0, 1}});
        EXPECT_EQ(Clip(Entry(-1, -1, 3, 3), part).size(), 9u) << "the other triangles are unaffected";
    }
    NodePart part;
    AddTriangle(part, {{0, 0}, {1, 0}, {0, 1}});
    for (const PanelEntry& entry : {Entry(0, 0, 0, 1), Entry(kNone, 0, 1, 1), Entry(0, -1e30f, 1, 2e30f)})
        EXPECT_TRUE(Clip(entry, part).empty());
    AddTriangle(part, {{0, 0}, {0.0051f, 0}, {0, 1}});
    EXPECT_EQ(Clip(Entry(-1, -1, 3, 3), part).size(), 18u) << "an edge just long enough";
}

TEST_F(PanelLoadingTest, PanelPartsPrecedeTheirBasePart) {
    gauge->MouseAreas = {Support::CodeArea(10, 10, 20, 20, "push", 0x20000000),
                         Support::CodeArea(150, 0, 9, 9, "off", 0), Support::PairArea(40, 10, 20, 20, "less", "more"),
                         Support::CodeArea(10, 40, 20, 20, "WheelUp WheelDown", kWheelAndRightClick)};
    builder.Part(0, Support::TriangleAt(2));
    const int onOther = builder.Node(0);
    builder.Part(onOther, Support::TriangleAt(2)).MaterialIndex =
        static_cast<std::uint32_t>(builder.Texture("other.png"));
    Build();
    const auto& parts = Parts(0);
    ASSERT_EQ(parts.size(), 4u);
    const std::tuple<Type, TouchEventType, std::uint32_t> rows[] = {{Type::Tap, TouchEventType::Wheel, 1},
                                                                    {Type::Twist, TouchEventType::LClickLClick, 3},
                                                                    {Type::Twist, TouchEventType::LClickRClick, 3}};
    for (std::size_t i = 0; i < 3; ++i) {
        const NodePart& part = *parts[i];
        ASSERT_EQ(part.Rect(), &part.panelRect);
        EXPECT_EQ(std::tuple(part.InteractionType, part.EventType, part.Rect()->CallbackType), rows[i]) << i;
        EXPECT_EQ(part.id, static_cast<std::int32_t>(i));
        EXPECT_EQ(part.panel, panels.Find("panel.PNG"));
        EXPECT_EQ(part.material, parts[3]->material);
    }
    EXPECT_EQ(parts[3]->id, 3);
    EXPECT_EQ(parts[3]->Rect(), nullptr);
    EXPECT_EQ(scene->Nodes()[0]->clickableParts.size(), 3u);
    ASSERT_EQ(Parts(onOther).size(), 1u) << "another texture shows nothing";

    // The first area is in front of the surface, from (0.1, 0.1) to (0.3, 0.3).
    EXPECT_NEAR(parts[0]->Tree().Intersect({{0.2f, 0.15f, 0}, {0, 0, 1}}).value().distance, 1.999f, 1e-5f);
    EXPECT_FALSE(parts[0]->Tree().Intersect({{0.35f, 0.15f, 0}, {0, 0, 1}}));
}

TEST_F(PanelLoadingTest, ALeverIsSetInPercentWhileThePanelKeepsItsSteps) {
    gauge->MouseAreas = {Support::PairArea(10, 10, 20, 20, "less", "more")};
    const int lever = builder.Node(0, "(L:Throttle1Position,percent)", Support::Slide(0, 0.1f, 0));
    builder.Part(lever, Support::TriangleAt(2));
    Build();
    const NodePart& part = *Parts(lever).at(0);
    ASSERT_NE(part.Rect(), nullptr);
    EXPECT_EQ(std::tuple(part.InteractionType, part.EventType, part.Rect()->CallbackType),
              std::tuple(Type::Move, TouchEventType::Wheel, 2u));
    const auto* code = dynamic_cast<const CallbackDraggingCode*>(part.Rect()->VariableCallback.get());
    ASSERT_NE(code, nullptr);
    EXPECT_EQ(code->Code, "L:Throttle1Position");
    EXPECT_EQ(panels.Find("panel.png")->Entries.at(0).Rect.CallbackType, 3u);
}

} // namespace CockpitModel
