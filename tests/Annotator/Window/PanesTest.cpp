#include "Annotator/Window/AnimationsPane.h"
#include "Annotator/Window/InteractionPane.h"
#include "Annotator/Window/PartInfoPane.h"
#include "Annotator/Window/TestPane.h"
#include "Annotator/Window/TestsWindow.h"
#include "Annotator/Window/TextureViewPane.h"
#include "Annotator/Window/WindowFixture.h"
#include "CockpitModel/Panels/PanelSet.h"
#include "Support/Installation.h"

#include <boost/optional/optional_io.hpp>

namespace {

using namespace Support;
using namespace CockpitModel;
using testing::ElementsAre;

class PanesTest : public testing::Test {
protected:
    PanesTest() : model(LeverModel()), graph(model, ModelCockpit(), nullptr) {}
    ~PanesTest() override {
        frame->Destroy();
        PumpFrames(2);
    }

    template <typename Pane>
    Pane& Make() {
        return *new Pane(frame, wxID_ANY);
    }
    NodePart& Part(std::size_t node, std::size_t part) { return *graph.Nodes().at(node)->parts.at(part); }

    ModelData model;
    SceneGraph graph;
    wxFrame* frame = new wxFrame(nullptr, wxID_ANY, "Panes");
    DialogRecorder dialogs;
};

TEST_F(PanesTest, TheInteractionPageShowsDetectionAndOverrideAndCommitsWhatItShows) {
    auto& pane = Make<Annotator::InteractionPane>();
    auto& type = *Find<wxChoice>(pane);
    auto& event = *Find<wxChoice>(pane, [&](wxChoice& choice) { return &choice != &type; });
    auto& reverse = *Find<wxCheckBox>(pane);
    auto& tooltip = *Find<wxTextCtrl>(pane);
    EXPECT_THAT(Lines(type), ElementsAre("(Use Detected)", "None", "Tap", "Twist", "Move", "Radio"));
    EXPECT_THAT(Lines(event), ElementsAre("(Use Default)", "Wheel", "LClick/RClick", "LClick/LClick"));

    NodePart& part = Part(1, 0);
    part.InteractionType = TouchInteractionType::Move;
    part.EventType = TouchEventType::LClickLClick;
    part.Rect()->Tooltip = "Up & down";
    AnnotationRecord record{.InteractionType = TouchInteractionType::Tap,
                            .EventType = TouchEventType::Wheel,
                            .Reverse = true,
                            .Tooltip = "Mine"};
    pane.SetPart(&part, &record);
    EXPECT_THAT(Labels<wxStaticText>(pane), ElementsAre("Interaction Type:", "Detected: Move", "Event Type:",
                                                        "Detected: LClick/LClick", "Tooltip:", "Detected: Up & down"));
    EXPECT_EQ(type.GetSelection(), 2);
    EXPECT_EQ(event.GetSelection(), 1);
    EXPECT_TRUE(reverse.GetValue());
    EXPECT_EQ(tooltip.GetValue(), "Mine");
    record.InteractionType = TouchInteractionType::YokePart;
    pane.SetPart(&part, &record);
    EXPECT_EQ(type.GetSelection(), 2) << "a type that cannot be chosen keeps the line";

    type.SetSelection(5);
    event.SetSelection(0);
    reverse.SetValue(false);
    tooltip.SetValue(" ");
    EXPECT_TRUE(pane.Commit());
    EXPECT_EQ(record, (AnnotationRecord{.InteractionType = TouchInteractionType::Radio, .Tooltip = " "}));
    type.SetSelection(0);
    tooltip.SetValue("");
    pane.Commit();
    EXPECT_EQ(record, AnnotationRecord());

    reverse.SetValue(true);
    pane.SetPart(nullptr, nullptr);
    EXPECT_THAT(Labels<wxStaticText>(pane),
                ElementsAre("Interaction Type:", "Detected:", "Event Type:", "Detected:", "Tooltip:", "Detected:"));
    EXPECT_EQ(type.GetSelection(), 0);
    EXPECT_FALSE(reverse.GetValue());
    EXPECT_EQ(tooltip.GetValue(), "");
}

TEST_F(PanesTest, TheTestPageDistinguishesNoneFromNoTest) {
    auto& pane = Make<Annotator::TestPane>();
    auto& type = *Find<wxChoice>(pane);
    EXPECT_THAT(Lines(type), ElementsAre("No Test...", "None", "Tap", "Twist", "Move", "Radio"));
    AnnotationRecord record;
    record.InteractionTypeTest = TouchInteractionType::None;
    pane.SetPart(&Part(1, 0), &record);
    EXPECT_EQ(type.GetSelection(), 1);
    EXPECT_TRUE(pane.Commit());
    EXPECT_EQ(record.InteractionTypeTest, TouchInteractionType::None);
    pane.SetPart(nullptr, nullptr);
    EXPECT_EQ(type.GetSelection(), 0);
    pane.SetPart(&Part(1, 0), &record);
    type.SetSelection(0);
    EXPECT_FALSE(pane.Commit());
    EXPECT_EQ(record.InteractionTypeTest, std::nullopt);
}

TEST_F(PanesTest, TheSliderMovesTheAnimationThatWasChosenLast) {
    auto& pane = Make<Annotator::AnimationsPane>();
    auto& rows = *Find<wxChoice>(pane);
    auto& slider = *Find<wxSlider>(pane);
    const auto infoText = [&] { return Labels<wxStaticText>(pane).at(1); };
    pane.SetPart(&Part(2, 0), &model);
    EXPECT_THAT(Lines(rows), ElementsAre("No Animations...", "2 - No Animation", "1 - sim/lever", "0 - No Animation"));
    slider.SetValue(30);
    Fire(slider, wxEVT_SLIDER);
    EXPECT_EQ(model.animations[1].position, 0.0f) << "nothing was chosen yet";

    Choose(rows, 2);
    EXPECT_EQ(slider.GetValue(), 0);
    EXPECT_THAT(infoText(), testing::StartsWith("Param: sim/lever\n"));
    slider.SetValue(25);
    Fire(slider, wxEVT_SLIDER);
    EXPECT_FLOAT_EQ(model.animations[1].position, 0.25f);
    slider.SetValue(40);
    Choose(rows, 2);
    EXPECT_EQ(slider.GetValue(), 25) << "chosen again";
    Choose(rows, 1);
    EXPECT_THAT(infoText(), testing::StartsWith("Node Local Matrix:\n+1.00"));
    slider.SetValue(75);
    Fire(slider, wxEVT_SLIDER);
    EXPECT_FLOAT_EQ(model.animations[1].position, 0.75f);
    Choose(rows, 0);
    EXPECT_EQ(infoText(), "");

    pane.SetPart(nullptr, &model);
    EXPECT_THAT(Lines(rows), ElementsAre("No Animations..."));
    Fire(slider, wxEVT_SLIDER);
    EXPECT_FLOAT_EQ(model.animations[1].position, 0.75f);
}

TEST_F(PanesTest, TheInfoPageShowsTextsWithAmpersandsAndZeroBytesCompletely) {
    auto& pane = Make<Annotator::PartInfoPane>();
    Part(1, 0).Rect()->Text = std::string("lever &\0knob", 12);
    pane.SetPart(&Part(1, 0));
    EXPECT_THAT(Labels<wxStaticText>(pane),
                ElementsAre("ID: (1,0)", "File Offset: 0", "MaterialTexId: 0 TexId: 0 Tex: panel.png",
                            "Detected Interaction Type: None", "Info:", testing::StartsWith("Balance Factor: "),
                            "Base Data:", "lever & knob"));
    pane.SetPart(nullptr);
    EXPECT_THAT(Labels<wxStaticText>(pane), ElementsAre("ID: None", "Offset:", "Material:",
                                                        "Detected Interaction Type:", "Info:", "", "Base Data:", ""));
}

TEST_F(PanesTest, TheTexturePageDrawsPanelAndTrianglesOnASquare) {
    auto& pane = Make<Annotator::TextureViewPane>();
    NodePart part;
    part.vertices.resize(3);
    part.vertices[0].texture = {0.25f, 0.25f};
    part.vertices[1].texture = {0.75f, 0.25f};
    part.vertices[2].texture = {0.25f, 0.75f};
    Panel panel;
    panel.Entries.resize(1);
    panel.Entries[0].U = panel.Entries[0].V = 0.8f;
    panel.Entries[0].Width = panel.Entries[0].Height = 0.1f;
    part.panel = &panel;
    pane.SetPart(&part);
    frame->SetClientSize(200, 300);
    pane.SetSize(0, 0, 200, 300);
    frame->Show();
    wxImage image;
    ASSERT_TRUE(PumpUntil([&] {
        image = WindowPicture(pane);
        return ColourAt(image, 100, 50) == *wxRED;
    }));
    EXPECT_EQ(ColourAt(image, 190, 190), *wxBLACK);
    EXPECT_EQ(ColourAt(image, 170, 170), *wxGREEN) << "the panel's rectangle";
    EXPECT_EQ(ColourAt(image, 50, 100), *wxRED) << "the left edge";
    EXPECT_EQ(ColourAt(image, 75, 75), *wxBLACK) << "not filled";
    EXPECT_NE(ColourAt(image, 100, 250), *wxBLACK) << "below the square";
    pane.SetPart(nullptr);
}

TEST_F(PanesTest, TheResultsHaveARowForEachAircraftWithATest) {
    const Installation installation;
    const WorkingDirectory inside(installation.path);
    MadeAircraftList loader;
    for (const char* name : {"Plain", "Overrides", "Caf\xC3\xA9"})
        loader.aircraft.emplace_back(name, std::string("Made/") + name, MakerOf(LeverModel()));
    installation.Annotations("Overrides", "<Override><NodeId>0</NodeId><PartId>0</PartId></Override>");
    installation.Annotations("Caf\xC3\xA9",
                             Expectation(0, 0, "None") + Expectation(1, 1, "Twist") + Expectation(2, 0, "None"));

    auto* window = new Annotator::TestsWindow(&loader);
    const auto& grid = *Find<wxGrid>(*window);
    ASSERT_EQ(grid.GetNumberRows(), 2) << "an empty one first";
    std::string text;
    for (int column = 0; column < grid.GetNumberCols(); ++column)
        text += grid.GetCellValue(1, column).ToStdString(wxConvUTF8) + "|";
    EXPECT_EQ(text, "Caf\xC3\xA9|2|1|3|");
    window->Destroy();
}

} // namespace
