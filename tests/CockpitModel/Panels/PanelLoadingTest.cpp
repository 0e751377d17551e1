#include "CockpitModel/Panels/PanelSet.h"
#include "CockpitModel/Picking/PartTree.h"
#include "CockpitModel/SceneGraph.h"
#include "CockpitModel/Touch/InteractionDetector.h"
#include "Support/ModelBuilder.h"
#include "Support/TestGaugeFile.h"

#include <gtest/gtest.h>
#include <sstream>

namespace CockpitModel {

namespace {

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
