#include "Annotator/Window/AnnotatorWindow.h"

#include "Annotator/Window/WindowFixture.h"

#include <boost/filesystem.hpp>
#include <dlfcn.h>
#include <malloc.h>
#include <wx/menu.h>
#include <wx/notebook.h>
#include <wx/sizer.h>

namespace {

using namespace Support;
using testing::ElementsAre;
using testing::HasSubstr;

class AnnotatorWindowTest : public WindowTest {
protected:
    void ChooseMenu(int menu) {
        wxMenu& chosen = *window->GetMenuBar()->GetMenu(static_cast<std::size_t>(menu));
        wxCommandEvent event(wxEVT_MENU, chosen.FindItemByPosition(0)->GetId());
        chosen.ProcessEvent(event);
    }
};

TEST_F(AnnotatorWindowTest, StartsEmptyWithItsControlsInOrder) {
    loader.aircraft.emplace_back("Caf\xE9", "Made/Cafe", MakerOf(LeverModel()));
    Open();
    EXPECT_EQ(window->GetTitle(), "Vorelle Aircraft Annotator");
    EXPECT_EQ(window->GetSize(), wxSize(1400, 800));
    const std::pair<const char*, const char*> menus[] = {{"Tests", "Run All Tests"},
                                                         {"Detected Data", "Save Detected Aircraft Data"}};
    const wxMenuBar& bar = *window->GetMenuBar();
    for (std::size_t i = 0; i < std::size(menus); ++i) {
        EXPECT_EQ(bar.GetMenuLabelText(i), menus[i].first);
        EXPECT_EQ(bar.GetMenu(i)->FindItemByPosition(0)->GetItemLabelText(), menus[i].second);
    }
    EXPECT_EQ(window->GetStatusBar()->GetStatusText(0), "Loading...");
    EXPECT_EQ(window->GetStatusBar()->GetStatusText(1), "Click and drag to rotate view.  Arrow keys or WASD to move.");
    EXPECT_THAT(Lines(*selector), ElementsAre("Select an aircraft...", "Trainer", "Caf\xEF\xBF\xBD"));
    EXPECT_EQ(selector->GetSelection(), 0);
    EXPECT_EQ(loader.scans, 1);

    auto& notebook = *Find<wxNotebook>(*window);
    std::vector<std::string> pages;
    for (std::size_t i = 0; i < notebook.GetPageCount(); ++i)
        pages.push_back(notebook.GetPageText(i).ToStdString());
    EXPECT_THAT(pages, ElementsAre("VR Interaction", "Animations", "Info", "Tests", "UVs"));
    EXPECT_EQ(TreeText(), "");
    EXPECT_EQ(IdLabel(), "ID: None");

    window->SetSize(1590, 800);
    PumpFrames(2);
    const int width = tree->GetParent()->GetClientSize().x;
    EXPECT_NEAR(tree->GetSize().x, width / 7, 2);
    EXPECT_NEAR(canvas->GetSize().x, 4 * width / 7, 2);
    EXPECT_NEAR(notebook.GetParent()->GetSize().x, 2 * width / 7, 2);
    EXPECT_EQ(canvas->GetPosition().x, tree->GetSize().x);
}

/// What a screen reader is told of a control.
std::string AccessibleNameOf(wxWindow& control) {
    auto* const accessible = reinterpret_cast<void* (*)(void*)>(dlsym(RTLD_DEFAULT, "gtk_widget_get_accessible"));
    auto* const name = reinterpret_cast<const char* (*)(void*)>(dlsym(RTLD_DEFAULT, "atk_object_get_name"));
    const char* text = name(accessible(control.GetHandle()));
    return text ? text : "";
}

TEST_F(AnnotatorWindowTest, NamesEveryControlForAssistiveTools) {
    Open();
    EXPECT_EQ(AccessibleNameOf(*selector), "Aircraft");
    EXPECT_EQ(AccessibleNameOf(*tree), "Nodes and parts of the cockpit");
    EXPECT_EQ(AccessibleNameOf(*canvas), "Cockpit");
    int named = 0;
    const std::function<void(wxWindow&)> visit = [&](wxWindow& parent) {
        for (wxWindow* child : parent.GetChildren()) {
            if (dynamic_cast<wxControl*>(child) && child->AcceptsFocus()) {
                EXPECT_NE(AccessibleNameOf(*child), "") << child->GetName();
                ++named;
            }
            visit(*child);
        }
    };
    visit(*window);
    EXPECT_GE(named, 11);
}

TEST_F(AnnotatorWindowTest, LoadsAPickedAircraftInTheNextFrame) {
    loader.aircraft[0].make = [] {
        auto cockpit = std::make_unique<ModelCockpit>(LeverModel());
        cockpit->modelOffset = {1, 2, 4};
        cockpit->pilotEye = {0.25f, 0.5f, 0.125f};
        return cockpit;
    };
    ModelBuilder other;
    other.Part(0, SquareAhead(0, 0, 1, 1));
    loader.aircraft.emplace_back("Other", "Made/Other", MakerOf(std::move(other.model)));
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
    EXPECT_EQ(window->GetStatusBar()->GetStatusText(0), "Loading...");
    EXPECT_EQ(wxWindow::FindFocus(), canvas);
    EXPECT_EQ(canvas->control.camera.Position(), Utils::Vector3(1.25f, 2.5f, -4.125f)) << "the pilot's eye";
    EXPECT_EQ(canvas->control.camera.Rotation(), Utils::Vector3(0.1f, 0.0f, 0.2f));

    tree->SelectItem(Lever());
    Load(2);
    EXPECT_EQ(TreeText(), "Other\n N: 0\n  P: 0\n");
    EXPECT_EQ(IdLabel(), "ID: None");
    tree->SelectItem(LargeSquare());
    EXPECT_EQ(IdLabel(), "ID: (0,0)");
    EXPECT_TRUE(IsHighlighted(LargeSquare()));
    EXPECT_TRUE(dialogs.texts.empty());
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
    // The lever's square spans -0.1 to 0.1 metres about the view's axis at 1 metre.
    Click({size.x / 2, size.y / 2});
    EXPECT_EQ(IdLabel(), "ID: (1,0)");
    EXPECT_EQ(tree->GetSelection(), Lever());
    EXPECT_TRUE(IsHighlighted(Lever()));
    EXPECT_FALSE(tree->IsBold(Item({"N: 0", "N: 1", "P: 1"})));
    // To the lower right of it there is only the large square behind.
    Click({3 * size.x / 4, 3 * size.y / 4});
    EXPECT_EQ(IdLabel(), "ID: (0,0)");
    EXPECT_TRUE(IsHighlighted(LargeSquare()));
    EXPECT_FALSE(tree->IsBold(Lever()));
    EXPECT_EQ(tree->GetItemTextColour(Lever()), *wxBLACK);
}

TEST_F(AnnotatorWindowTest, SavesAndFindsAnAnnotationAgain) {
    Open();
    Load();
    Save();
    EXPECT_FALSE(boost::filesystem::exists("QVRA/Annotations/Trainer.xml")) << "no part was selected";

    tree->SelectItem(Lever());
    auto& interaction = *Find<Annotator::InteractionPane>(*window);
    auto& tests = *Find<Annotator::TestPane>(*window);
    Find<wxChoice>(interaction)->SetSelection(3);
    Find<wxTextCtrl>(interaction)->SetValue(wxString::FromUTF8("Gr\xC3\xBC\xC3\x9F"));
    Find<wxChoice>(tests)->SetSelection(2);
    Save();
    const std::string saved = folder.Read("QVRA/Annotations/Trainer.xml");
    for (const char* element :
         {"<NodeId>1</NodeId>", "<PartId>0</PartId>", "<InteractionType>Twist</InteractionType>",
          "<InteractionTypeTest>Tap</InteractionTypeTest>", "<Tooltip>Gr\xC3\xBC\xC3\x9F</Tooltip>"})
        EXPECT_THAT(saved, HasSubstr(element));
    Save();
    EXPECT_EQ(folder.Read("QVRA/Annotations/Trainer.xml"), saved);

    Close();
    Open();
    Load();
    tree->SelectItem(Lever());
    EXPECT_EQ(Find<wxChoice>(*Find<Annotator::InteractionPane>(*window))->GetSelection(), 3);
    EXPECT_EQ(Find<wxChoice>(*Find<Annotator::TestPane>(*window))->GetSelection(), 2);
    tree->SelectItem(LargeSquare());
    EXPECT_EQ(Find<wxChoice>(*Find<Annotator::InteractionPane>(*window))->GetSelection(), 0);
    EXPECT_TRUE(dialogs.texts.empty());
}

TEST_F(AnnotatorWindowTest, TellsWhereASaveKeptWhatItCouldNotReadAndWhenItFails) {
    const std::string name = "QVRA/Annotations/Caf\xE9.xml"; // the folder's name is no UTF-8
    loader.aircraft[0].acfPath = "Aircraft/Made/Caf\xE9/plane.acf";
    folder.Write(name, "<Overrides><Override>");
    Open();
    Load();
    tree->SelectItem(LargeSquare());
    Save();
    ASSERT_EQ(dialogs.texts.size(), 1u);
    EXPECT_THAT(dialogs.texts[0], HasSubstr(folder / "QVRA/Annotations/Caf\xEF\xBF\xBD.xml.kept-1"));
    EXPECT_EQ(folder.Read(name + ".kept-1"), "<Overrides><Override>");
    EXPECT_THAT(folder.Read(name), HasSubstr("<NodeId>0</NodeId>"));
    boost::filesystem::remove(name);
    boost::filesystem::create_directories(name + "/in the way");
    auto& types = *Find<wxChoice>(*Find<Annotator::InteractionPane>(*window));
    types.SetSelection(2);
    Save();
    ASSERT_EQ(dialogs.texts.size(), 2u);
    EXPECT_THAT(dialogs.texts[1], HasSubstr(folder / "QVRA/Annotations/Caf\xEF\xBF\xBD.xml"));
    EXPECT_EQ(types.GetSelection(), 2);
    EXPECT_EQ(IdLabel(), "ID: (0,0)");
}

/// A cockpit that throws at one step of the road.
struct ThrowingCockpit final : CockpitModel::AircraftCockpit {
    explicit ThrowingCockpit(const char* failing) : step(failing) {}
    bool IsValid() const override {
        if (step == "validity")
            throw std::runtime_error("not to be asked");
        return true;
    }
    std::unique_ptr<CockpitModel::ModelData> LoadModel() const override {
        if (step == "memory")
            throw std::bad_alloc();
        throw std::runtime_error("the model is gone");
    }
    std::string step;
};

/// Each step of the load in turn: the person reads which aircraft it was and why, the window stands empty, and what was
/// saved before stands in its file.
TEST_F(AnnotatorWindowTest, SurvivesALoadThatFailsAtAnyStep) {
    ModelBuilder noVertex, noMaterial, noTrack;
    noVertex.Part(0, SquareAhead(0, 0, 1, 1));
    noVertex.model.indexBlocks[0].Children[4] = 6;
    noMaterial.Part(0, SquareAhead(0, 0, 1, 1)).MaterialIndex = 9;
    noTrack.model.animationLinks.Children.clear();
    const auto throwing = [](const char* step) { return [step] { return std::make_unique<ThrowingCockpit>(step); }; };
    const struct {
        const char* step;
        CockpitMaker maker;
        const char* reason;
    } rows[] = {
        {"cockpit",
         []() -> std::unique_ptr<CockpitModel::AircraftCockpit> {
             throw Utils::OutOfRange("broken_cockpit.obj(7): TRIS before any TEXTURE line");
         },
         "broken_cockpit.obj(7): TRIS before any TEXTURE line"},
        {"validity", throwing("validity"), "not to be asked"},
        {"object",
         [] {
             auto cockpit = std::make_unique<ModelCockpit>();
             cockpit->isValid = false;
             return cockpit;
         },
         "no cockpit object"},
        {"model", throwing("model"), "the model is gone"},
        {"memory", throwing("memory"), "bad_alloc"},
        {"vertices", MakerOf(noVertex.model), "vertex 6, but the model has 6"},
        {"material", MakerOf(noMaterial.model), "the part has no material"},
        {"links", MakerOf(noTrack.model), "invalid vector<T> subscript"},
    };
    for (const auto& row : rows)
        loader.aircraft.emplace_back(row.step, "Made/Broken", row.maker);
    Open();
    int line = 1;
    for (const auto& row : rows) {
        SCOPED_TRACE(row.step);
        Load(1);
        tree->SelectItem(Lever());
        Save();
        const std::string saved = folder.Read("QVRA/Annotations/Trainer.xml");
        dialogs.texts.clear();
        Load(++line);
        const bool fatal = std::string(row.step) == "object";
        ASSERT_EQ(dialogs.texts.size(), fatal ? 2u : 1u);
        if (fatal) {
            EXPECT_THAT(dialogs.texts[0], HasSubstr("Annotator\\AnnotatorWindow.cpp: Line 158\n"));
        }
        EXPECT_THAT(
            dialogs.texts.back(),
            testing::AllOf(HasSubstr(row.step), HasSubstr("Aircraft/Made/Broken/plane.acf"), HasSubstr(row.reason)));
        EXPECT_EQ(TreeText(), "");
        EXPECT_EQ(IdLabel(), "ID: None");
        Save();
        EXPECT_EQ(folder.Read("QVRA/Annotations/Trainer.xml"), saved);
        EXPECT_FALSE(boost::filesystem::exists("QVRA/Annotations/Broken.xml"));
    }
    Load(1);
    tree->SelectItem(Lever());
    EXPECT_EQ(IdLabel(), "ID: (1,0)");
}

TEST_F(AnnotatorWindowTest, TellsWhatAFrameThrowsAndStandsEmptyThen) {
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

TEST_F(AnnotatorWindowTest, TellsWhyTheTestsOrTheExportStopped) {
    loader.aircraft.emplace_back("Broken", "Made/Broken", []() -> std::unique_ptr<CockpitModel::AircraftCockpit> {
        throw std::runtime_error("no such luck");
    });
    folder.Write("QVRA/Annotations/Broken.xml", "<Overrides/>");
    folder.Write("QVRA/AirLogs", "a file where the folder should be");
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

TEST_F(AnnotatorWindowTest, SavesTheDetectedDataOfAllAircraftAndLeavesTheLoadedOneAlone) {
    loader.aircraft.emplace_back("Second", "Made/Second.1", MakerOf(LeverModel()));
    Open();
    Load();
    tree->SelectItem(LargeSquare());
    ChooseMenu(1);
    EXPECT_EQ(loader.scans, 2);
    EXPECT_THAT(folder.Read("QVRA/AirLogs/1389-2a5530b-4/Trainer.xml"), HasSubstr("<NodeId>2</NodeId>"));
    EXPECT_TRUE(boost::filesystem::exists("QVRA/AirLogs/1389-2a5530b-4/Second.xml"));
    EXPECT_EQ(IdLabel(), "ID: (0,0)");
    EXPECT_TRUE(dialogs.texts.empty());
}

TEST_F(AnnotatorWindowTest, PassesOnWhatTheScanThrows) {
    struct NoFolder final : Sim::AircraftListLoader {
        Sim::AircraftList LoadAircraftList() override { throw std::runtime_error("no folder"); }
    } failing;
    EXPECT_THROW(new Annotator::AnnotatorWindow(&failing), std::runtime_error);
}

std::size_t ThreadCount() {
    const boost::filesystem::directory_iterator tasks("/proc/self/task"), end;
    return static_cast<std::size_t>(std::distance(tasks, end));
}

TEST_F(AnnotatorWindowTest, KeepsThreadsAndMemorySteadyOverFiftyLoads) {
    Open();
    const auto loadTimes = [&](int count) {
        for (int i = 0; i < count; ++i) {
            Load();
            tree->SelectItem(Lever());
        }
    };
    loadTimes(10);
    const std::size_t threads = ThreadCount();
    // A scene takes more than 10 kB, so fifty that are not let go of take 500 kB each time. The toolkit and the driver
    // take such an amount now and then, but not four times in a row.
    std::ptrdiff_t leastGrowth = PTRDIFF_MAX;
    for (int round = 0; round < 4 && leastGrowth >= 250'000; ++round) {
        const std::size_t bytes = mallinfo2().uordblks;
        loadTimes(50);
        leastGrowth = std::min(leastGrowth, static_cast<std::ptrdiff_t>(mallinfo2().uordblks - bytes));
    }
    EXPECT_LE(ThreadCount(), threads);
    EXPECT_LT(leastGrowth, 250'000);
}

} // namespace
