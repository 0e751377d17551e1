#include "Annotator/Window/AnnotatorWindow.h"

#include "Annotator/FailureTexts.h"
#include "Annotator/Window/CanvasPicture.h"
#include "Annotator/Window/TestsWindow.h"
#include "Annotator/Window/WindowFixture.h"
#include "Support/ObjText.h"
#include "Utils/FatalError.h"

#include <boost/filesystem.hpp>
#include <cstring>
#include <wx/notebook.h>
#include <wx/sizer.h>

namespace {

using namespace Support;
using testing::ElementsAre;
using testing::HasSubstr;

using AnnotatorWindowTest = WindowTest;

TEST_F(AnnotatorWindowTest, StartsEmptyWithItsControlsInOrder) {
    loader.aircraft.emplace_back("Caf\xE9", "Made/Cafe", MakerOf(LeverModel()));
    Open();
    EXPECT_THAT(Lines(*selector), ElementsAre("Select an aircraft...", "Trainer", "Caf\xEF\xBF\xBD"));
    EXPECT_EQ(loader.scans, 1);
    auto& notebook = *Find<wxNotebook>(*window);
    std::vector<std::string> pages;
    for (std::size_t i = 0; i < notebook.GetPageCount(); ++i)
        pages.push_back(notebook.GetPageText(i).ToStdString());
    EXPECT_THAT(pages, ElementsAre("VR Interaction", "Animations", "Info", "Tests", "UVs"));
    EXPECT_EQ(TreeText(), "");
    EXPECT_EQ(IdLabel(), "ID: None");
}

TEST_F(AnnotatorWindowTest, LoadsAPickedAircraftInTheNextFrame) {
    loader.aircraft[0].make = [] {
        auto cockpit = std::make_unique<ModelCockpit>(LeverModel());
        cockpit->modelOffset = {1, 2, 4};
        cockpit->pilotEye = {0.25f, 0.5f, 0.125f};
        return cockpit;
    };
    Open();
    canvas->control.camera.SetRotation({0.1f, 0.0f, 0.2f});
    Load(0);
    EXPECT_EQ(TreeText(), "");
    Choose(*selector, 1);
    EXPECT_EQ(TreeText(), "") << "the handler only posts the load";
    PumpFrames(2);
    EXPECT_EQ(TreeText(), "Trainer\n"
                          " N: 0\n"
                          "  P: 0\n"
                          "  N: 1\n"
                          "   P: 0\n"
                          "   P: 1\n"
                          "   N: 2\n"
                          "    P: 0\n");
    EXPECT_TRUE(tree->IsExpanded(Item({"N: 0", "N: 1"})));
    EXPECT_EQ(wxWindow::FindFocus(), canvas);
    EXPECT_EQ(canvas->control.camera.Position(), Utils::Vector3(1.25f, 2.5f, -4.125f)) << "the pilot's eye";
    EXPECT_EQ(canvas->control.camera.Rotation(), Utils::Vector3(0.1f, 0.0f, 0.2f));

    tree->SelectItem(Lever());
    const std::string before = TreeText();
    Load();
    EXPECT_EQ(TreeText(), before);
    EXPECT_EQ(IdLabel(), "ID: None");
    EXPECT_FALSE(IsHighlighted(Lever()));
}

TEST_F(AnnotatorWindowTest, SelectsAPartFromTheTreeAndFromThePreview) {
    Open();
    Load();
    tree->SelectItem(Item({"N: 0", "N: 1", "P: 1"}));
    EXPECT_EQ(IdLabel(), "ID: (1,1)");
    tree->SelectItem(Item({"N: 0"}));
    EXPECT_EQ(IdLabel(), "ID: (1,1)") << "a node item changes nothing";
    EXPECT_TRUE(IsHighlighted(Item({"N: 0", "N: 1", "P: 1"})));
    const wxSize size = canvas->GetClientSize();
    // The lever's square spans -0.1 to 0.1 metres around the view axis at 1 metre.
    Click({size.x / 2, size.y / 2});
    EXPECT_EQ(IdLabel(), "ID: (1,0)");
    EXPECT_EQ(tree->GetSelection(), Lever());
    EXPECT_TRUE(IsHighlighted(Lever()));
    EXPECT_FALSE(tree->IsBold(Item({"N: 0", "N: 1", "P: 1"})));
    EXPECT_EQ(tree->GetItemTextColour(Item({"N: 0", "N: 1", "P: 1"})), *wxBLACK);
    Find<wxTextCtrl>(*window)->SetValue("not saved");
    Click({size.x / 2, size.y / 2});
    EXPECT_EQ(Find<wxTextCtrl>(*window)->GetValue(), "not saved") << "selected already";
}

TEST_F(AnnotatorWindowTest, UpdatesThePreviewAndTheTexturePage) {
    CockpitModel::ModelData model = LeverModel();
    model.materials.Children.push_back(model.materials.Children[0]);
    model.materials.Children[1].Alpha = 0.5f;
    model.parts[1].MaterialIndex = 1;
    loader.aircraft[0].make = MakerOf(std::move(model));
    Open();
    Load();
    const wxPoint middle{canvas->GetClientSize().x / 2, canvas->GetClientSize().y / 2};
    Click(middle);
    EXPECT_EQ(IdLabel(), "ID: (1,0)");
    Find<wxNotebook>(*window)->ChangeSelection(4);
    auto& page = *Find<Annotator::TextureViewPane>(*window);
    EXPECT_TRUE(PumpUntil([&] { // the lever's right edge, at u = 0.1
        const wxImage uvs = WindowPicture(page);
        const int edge = std::min(uvs.GetWidth(), uvs.GetHeight()) / 10;
        return ColourAt(uvs, edge, edge / 2) == *wxRED;
    }));
    // The selection's colours have no red and no green.
    const wxImage picture = CanvasPicture(*canvas);
    EXPECT_EQ(picture.GetRed(middle.x, middle.y), 0);
    EXPECT_GT(picture.GetBlue(middle.x, middle.y), 0);

    auto& transparent = *FindLabelled<wxCheckBox>(*window, "Show Transparent Objects");
    transparent.SetValue(false);
    Fire(transparent, wxEVT_CHECKBOX);
    Click(middle);
    EXPECT_EQ(IdLabel(), "ID: (0,0)") << "through the hidden lever";
}

TEST_F(AnnotatorWindowTest, KeepsTheSceneWhenAClickThrows) {
    struct Throwing final : Annotator::Clickable {
        void OnMouseEvent(const Annotator::CanvasMouseEvent&) override { throw std::runtime_error("no pick"); }
    };
    Open();
    Load();
    tree->SelectItem(Lever());
    canvas->control.clickables.push_back(std::make_shared<Throwing>());
    Click({3, 3});
    EXPECT_EQ(dialogs.texts, std::vector<std::string>{"This part cannot be shown:\n\nno pick"});
    EXPECT_NE(TreeText(), "");
}

TEST_F(AnnotatorWindowTest, SavesWhatItsPagesShowAndTestsIt) {
    Open();
    Load();
    Save();
    EXPECT_FALSE(boost::filesystem::exists("QVRA/Annotations/Trainer.xml")) << "no part was selected";

    tree->SelectItem(Lever());
    auto& type = *Find<wxChoice>(*Find<Annotator::InteractionPane>(*window));
    auto& expected = *Find<wxChoice>(*Find<Annotator::TestPane>(*window));
    type.SetSelection(3);
    Find<wxTextCtrl>(*window)->SetValue(wxString::FromUTF8("Gr\xC3\xBC\xC3\x9F"));
    expected.SetSelection(2);
    Save();
    const std::string saved = folder.Read("QVRA/Annotations/Trainer.xml");
    for (const char* element :
         {"<NodeId>1</NodeId>", "<PartId>0</PartId>", "<InteractionType>Twist</InteractionType>",
          "<InteractionTypeTest>Tap</InteractionTypeTest>", "<Tooltip>Gr\xC3\xBC\xC3\x9F</Tooltip>"})
        EXPECT_THAT(saved, HasSubstr(element));
    ChooseMenu(0);
    auto* results = dynamic_cast<Annotator::TestsWindow*>(wxTopLevelWindows.GetLast()->GetData());
    ASSERT_TRUE(results);
    EXPECT_TRUE(results->IsShown());
    results->Destroy();

    tree->SelectItem(LargeSquare());
    EXPECT_EQ(type.GetSelection(), 0);
    EXPECT_EQ(expected.GetSelection(), 0);
    tree->SelectItem(Lever());
    EXPECT_EQ(type.GetSelection(), 3);
    EXPECT_EQ(expected.GetSelection(), 2);
    EXPECT_TRUE(dialogs.texts.empty());
}

TEST_F(AnnotatorWindowTest, AsksBeforeAnotherReadingDiscardsAnEdit) {
    Open();
    wxMenu& reading = *window->GetMenuBar()->GetMenu(2);
    const auto root = [&] { return TreeText().substr(0, TreeText().find('\n')); };
    ChooseMenuItem(reading, 0);
    EXPECT_EQ(root(), "") << "nothing is picked";
    Load();
    EXPECT_EQ(root(), "Trainer (full reading)");
    tree->SelectItem(Lever());
    Find<wxTextCtrl>(*window)->SetValue("not saved");
    dialogs.answer = wxID_NO;
    ChooseMenuItem(reading, 0);
    PumpFrames(2);
    EXPECT_TRUE(reading.FindItemByPosition(0)->IsChecked());
    EXPECT_EQ(root(), "Trainer (full reading)");
    EXPECT_EQ(Find<wxTextCtrl>(*window)->GetValue(), "not saved");
    dialogs.answer = wxID_YES;
    ChooseMenuItem(reading, 0);
    PumpFrames(2);
    EXPECT_EQ(root(), "Trainer");
    EXPECT_EQ(dialogs.texts.size(), 2u);
    tree->SelectItem(Lever());
    ChooseMenuItem(reading, 0);
    PumpFrames(2);
    EXPECT_EQ(dialogs.texts.size(), 2u) << "nothing was changed";
    tree->SelectItem(Lever());
    Save();
    EXPECT_TRUE(boost::filesystem::exists("QVRA/Annotations/full/Trainer.xml"));
    EXPECT_FALSE(boost::filesystem::exists("QVRA/Annotations/Trainer.xml"));
}

TEST_F(AnnotatorWindowTest, ShowsTheSurroundingsOfTheFullReading) {
    folder.Write("wall.obj", ObjText().Tris().Text());
    loader.aircraft[0].make = [this] {
        auto cockpit = std::make_unique<ModelCockpit>(LeverModel());
        cockpit->surroundings.objects.push_back({"wall", folder / "wall.obj", {0, 0, 0.5f}});
        return cockpit;
    };
    Open();
    Load();
    const wxPoint at{canvas->GetClientSize().x / 2 + 5, canvas->GetClientSize().y / 2 - 5};
    const auto colour = [&] { return ColourAt(CanvasPicture(*canvas), at.x, at.y); };
    const wxColour lever = colour();
    wxMenuBar& bar = *window->GetMenuBar();
    ChooseMenuItem(*bar.GetMenu(2), 0);
    EXPECT_TRUE(PumpUntil([&] { return colour() != lever; })) << "the wall is between the eye and the lever";
    wxMenu& view = *bar.GetMenu(3);
    ChooseMenuItem(view, view.GetMenuItemCount() - 1);
    EXPECT_TRUE(PumpUntil([&] { return colour() == lever; }));
}

TEST_F(AnnotatorWindowTest, MovesTheCameraFromTheMenuView) {
    Open();
    wxMenu& view = *window->GetMenuBar()->GetMenu(3);
    const auto enabled = [&] {
        std::string items;
        for (std::size_t i = 0; i < 3; ++i)
            items += view.FindItemByPosition(i)->IsEnabled() ? '1' : '0';
        return items;
    };
    EXPECT_EQ(enabled(), "000") << "nothing is loaded";
    Load();
    EXPECT_EQ(enabled(), "101") << "no part is selected";
    tree->SelectItem(Item({"N: 0", "N: 1", "P: 1"}));
    EXPECT_EQ(enabled(), "111");
    const Utils::Vector3 eye = canvas->control.camera.Position();
    const auto distance = [&] { return (canvas->control.camera.Position() - eye).norm(); };
    ChooseMenuItem(view, 1);
    // A square of 0.1 m at a distance of 1 m takes a third of the view from about 0.3 m.
    EXPECT_TRUE(PumpUntil([&] { return distance() > 0.6f; }));
    EXPECT_LT(canvas->control.camera.Rotation().x(), -0.2f) << "it is above the eye";
    ChooseMenuItem(view, 0);
    EXPECT_TRUE(PumpUntil([&] { return distance() == 0; }));
    EXPECT_EQ(canvas->control.camera.Rotation(), Utils::Vector3(0, 0, 0));
    Load();
    EXPECT_EQ(enabled(), "101");
    window->FramePart();
    PumpFrames(3);
    EXPECT_EQ(distance(), 0) << "nothing is selected";
}

TEST_F(AnnotatorWindowTest, FramesTheCockpitIfTheFullReadingSeesNoPart) {
    loader.aircraft[0].make = [] {
        auto cockpit = std::make_unique<ModelCockpit>(LeverModel());
        cockpit->pilotEye = {0, 0, 50};
        return cockpit;
    };
    Open();
    Load();
    const auto place = [&] { return canvas->control.camera.Position().z(); };
    EXPECT_EQ(place(), -50) << "the plain reading's camera stays at the eye";
    ChooseMenuItem(*window->GetMenuBar()->GetMenu(2), 0);
    EXPECT_TRUE(PumpUntil([&] { return place() > -0.9f; })) << "near the lever, 1 m in front of the origin";
    const Utils::Vector3 framed = canvas->control.camera.Position();
    PumpFrames(3);
    EXPECT_EQ(canvas->control.camera.Position(), framed);
}

TEST_F(AnnotatorWindowTest, ColoursThePartsAndShowsALegend) {
    Open();
    Load();
    const wxPoint middle{canvas->GetClientSize().x / 2, canvas->GetClientSize().y / 2};
    const auto colours = [&](std::size_t choice) {
        ChooseMenuItem(*window->GetMenuBar()->GetMenu(3)->FindItemByPosition(3)->GetSubMenu(), choice);
        PumpFrames(2);
        return CanvasPicture(*canvas);
    };
    const wxImage standard = CanvasPicture(*canvas), byType = colours(1), byResult = colours(2), again = colours(0);
    EXPECT_EQ(ColourAt(byType, 11, 11), *wxWHITE) << "the legend";
    EXPECT_NE(ColourAt(standard, 11, 11), *wxWHITE);
    const wxColour lever = ColourAt(byResult, middle.x, middle.y); // without a test: yellow
    EXPECT_GT(lever.Red(), 2 * lever.Blue());
    EXPECT_GT(lever.Green(), 2 * lever.Blue());
    const std::size_t size = static_cast<std::size_t>(3 * standard.GetWidth() * standard.GetHeight());
    EXPECT_EQ(std::memcmp(standard.GetData(), again.GetData(), size), 0);
}

TEST_F(AnnotatorWindowTest, IsEmptyAfterALoadThatFails) {
    loader.aircraft.emplace_back("Broken", "Made/Broken", [] {
        auto cockpit = std::make_unique<ModelCockpit>();
        cockpit->isValid = false;
        return cockpit;
    });
    Open();
    Load();
    tree->SelectItem(Lever());
    dialogs.whileUp = [&] { EXPECT_EQ(TreeText(), "") << "items of a deleted scene"; };
    Load(2);
    ASSERT_EQ(dialogs.texts.size(), 2u);
    EXPECT_THAT(dialogs.texts[0], HasSubstr("Annotator\\AnnotatorWindow.cpp: Line 158\n"));
    EXPECT_THAT(dialogs.texts[1],
                testing::AllOf(HasSubstr("Broken"), HasSubstr("Aircraft/Made/Broken/plane.acf"),
                               HasSubstr("No cockpit object found"), HasSubstr(Annotator::kLogEndedText)));
    EXPECT_EQ(TreeText(), "");
    EXPECT_EQ(IdLabel(), "ID: None");
    Save();
    EXPECT_FALSE(boost::filesystem::exists("QVRA/Annotations/Trainer.xml"));
}

TEST_F(AnnotatorWindowTest, ShowsWhatAFrameThrowsAndIsThenEmpty) {
    struct ThrowingOnce final : Rendering::Stage {
        void Render(Rendering::Context&, const Utils::Matrix4&, const Utils::Matrix4&) override {
            if (std::exchange(armed, false))
                throw std::runtime_error("lost the picture");
        }
        bool armed = false;
    };
    Open();
    const auto stage = std::make_shared<ThrowingOnce>();
    canvas->stages.Add(stage);
    Load();
    stage->armed = true;
    PumpFrames(3);
    ASSERT_EQ(dialogs.texts.size(), 1u);
    EXPECT_THAT(dialogs.texts[0], HasSubstr("lost the picture"));
    EXPECT_EQ(TreeText(), "");
    Load();
    EXPECT_NE(TreeText(), "");
}

TEST_F(AnnotatorWindowTest, ShowsWhyTheTestsOrTheExportStopped) {
    loader.aircraft.emplace_back("Broken", "Made/Broken", []() -> std::unique_ptr<CockpitModel::AircraftCockpit> {
        throw std::runtime_error("no such luck");
    });
    folder.Write("QVRA/Annotations/Broken.xml", "<Overrides/>");
    folder.Write("QVRA/AirLogs", "a file instead of the folder");
    Open();
    const auto windows = wxTopLevelWindows.GetCount();
    ChooseMenu(0);
    ASSERT_EQ(dialogs.texts.size(), 1u);
    EXPECT_THAT(dialogs.texts[0], testing::AllOf(HasSubstr("Broken"), HasSubstr("no such luck")));
    PumpFrames(1);
    EXPECT_EQ(wxTopLevelWindows.GetCount(), windows) << "no result window";
    ChooseMenu(1);
    ASSERT_EQ(dialogs.texts.size(), 2u);
    EXPECT_THAT(dialogs.texts[1], HasSubstr(folder / "QVRA/AirLogs"));
}

TEST_F(AnnotatorWindowTest, SavesTheDetectedDataOfAllAircraftAndKeepsTheLoadedOne) {
    loader.aircraft.emplace_back("Broken", "Made/Broken", [] {
        CockpitModel::ModelData model = LeverModel();
        model.animationLinks.Children.clear();
        auto cockpit = std::make_unique<ModelCockpit>(std::move(model));
        cockpit->isValid = false;
        return cockpit;
    });
    const bool logEnded = Utils::FatalErrorReported(); // by an earlier test
    Open();
    Load();
    tree->SelectItem(LargeSquare());
    ChooseMenu(1);
    EXPECT_EQ(loader.scans, 2);
    EXPECT_THAT(folder.Read("QVRA/AirLogs/1389-2a5530b-4/Trainer.xml"), HasSubstr("<NodeId>2</NodeId>"));
    EXPECT_EQ(IdLabel(), "ID: (0,0)");
    EXPECT_EQ(dialogs.texts.empty(), !logEnded);

    Load(2); // without a cockpit object: a fatal error, which ends the log
    ChooseMenu(1);
    EXPECT_THAT(
        dialogs.texts.back(),
        testing::AllOf(HasSubstr("1 file was saved"),
                       testing::EndsWith("Broken (Aircraft/Made/Broken/plane.acf): invalid vector<T> subscript")));
}

TEST_F(AnnotatorWindowTest, PassesOnWhatTheScanThrows) {
    struct NoFolder final : Sim::AircraftListLoader {
        Sim::AircraftList LoadAircraftList() override { throw std::runtime_error("no folder"); }
    } failing;
    EXPECT_THROW(new Annotator::AnnotatorWindow(&failing), std::runtime_error);
}

} // namespace
