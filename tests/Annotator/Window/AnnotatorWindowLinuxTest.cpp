// The window's tests that need GTK, a Linux file system or /proc.
#include "Annotator/Window/WindowFixture.h"

#include <boost/filesystem.hpp>
#include <dlfcn.h>
#include <wx/uiaction.h>

namespace {

using namespace Support;
using testing::HasSubstr;

using AnnotatorWindowTest = WindowTest;

/// The accessible name of a control.
std::string AccessibleNameOf(wxWindow& control) {
    auto* const accessible = reinterpret_cast<void* (*)(void*)>(dlsym(RTLD_DEFAULT, "gtk_widget_get_accessible"));
    auto* const name = reinterpret_cast<const char* (*)(void*)>(dlsym(RTLD_DEFAULT, "atk_object_get_name"));
    const char* text = name(accessible(control.GetHandle()));
    return text ? text : "";
}

TEST_F(AnnotatorWindowTest, NamesEveryControlForAssistiveTools) {
    Open();
    ChooseMenuItem(*window->GetMenuBar()->GetMenu(4), 0); // the list of parts
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
    EXPECT_GE(named, 13);
}

TEST_F(AnnotatorWindowTest, RunsTheKeysOfTheMenusExceptWhileTheUserTypes) {
    Open();
    Load();
    const auto distance = [&] { return canvas->control.camera.Position().norm(); };
    auto& tooltip = *Find<wxTextCtrl>(*window);
    wxUIActionSimulator user;
    const auto press = [&](wxWindow& focused) {
        focused.SetFocus();
        PumpFrames(3);
        user.Char(WXK_F7);
        PumpFrames(30);
    };
    press(tooltip);
    EXPECT_EQ(distance(), 0);
    press(*canvas);
    EXPECT_TRUE(PumpUntil([&] { return distance() > 0.1f; }));
}

/// Whether the list of a choice is open: it then gets all events of the program.
bool ListIsOpen() {
    static auto* const grabbing = reinterpret_cast<void* (*)()>(dlsym(RTLD_DEFAULT, "gtk_grab_get_current"));
    return grabbing() != nullptr;
}

/// Opens the list with the pointer on the current line and closes it with keys, or with a click further down if there
/// are none.
void OpenAndCloseList(wxChoice& choice, const std::vector<int>& keys, int clickBelow = 0) {
    const wxPoint at = choice.ClientToScreen(wxPoint(30, choice.GetSize().y / 2));
    wxUIActionSimulator user;
    user.MouseMove(at);
    user.MouseClick();
    ASSERT_TRUE(PumpUntil(ListIsOpen));
    for (const int key : keys)
        user.Char(key);
    if (keys.empty()) {
        user.MouseMove(at + wxPoint(0, clickBelow));
        user.MouseClick();
    }
    ASSERT_TRUE(PumpUntil([] { return !ListIsOpen(); }));
    PumpFrames(5);
}

TEST_F(AnnotatorWindowTest, HandlesTheSameChoiceAgain) {
    int loads = 0;
    loader.aircraft[0].make = [&] {
        ++loads;
        return std::make_unique<ModelCockpit>(LeverModel());
    };
    loader.aircraft.push_back(loader.aircraft[0]);
    Open();
    Load();
    const struct {
        const char* closing;
        std::vector<int> keys;
        int clickBelow, loads;
    } rows[] = {{"click on the current line", {}, 0, 1},
                {"Escape", {WXK_ESCAPE}, 0, 0},
                {"Return", {WXK_RETURN}, 0, 1},
                {"click outside", {}, 500, 0},
                {"Down and Return", {WXK_DOWN, WXK_RETURN}, 0, 1}};
    for (const auto& row : rows) {
        loads = 0;
        OpenAndCloseList(*selector, row.keys, row.clickBelow);
        EXPECT_EQ(loads, row.loads) << row.closing;
    }
    EXPECT_EQ(selector->GetSelection(), 2);
}

TEST_F(AnnotatorWindowTest, ShowsWhereASaveKeptAnUnreadableFileAndWhenItFails) {
    const std::string name = "QVRA/Annotations/Caf\xE9.xml"; // the folder's name is not UTF-8
    loader.aircraft[0].acfPath = "Aircraft/Made/Caf\xE9/plane.acf";
    folder.Write(name, "<Overrides><Override>");
    Open();
    Load();
    tree->SelectItem(LargeSquare());
    Save();
    boost::filesystem::remove(name);
    boost::filesystem::create_directories(name + "/in the way");
    auto& types = *Find<wxChoice>(*Find<Annotator::InteractionPane>(*window));
    types.SetSelection(2);
    Save();
    ASSERT_EQ(dialogs.texts.size(), 2u);
    EXPECT_THAT(dialogs.texts[0], HasSubstr(folder / "QVRA/Annotations/Caf\xEF\xBF\xBD.xml.kept-1"));
    EXPECT_THAT(dialogs.texts[1], HasSubstr(folder / "QVRA/Annotations/Caf\xEF\xBF\xBD.xml"));
    EXPECT_EQ(types.GetSelection(), 2);
}

std::size_t ThreadCount() {
    const boost::filesystem::directory_iterator tasks("/proc/self/task"), end;
    return static_cast<std::size_t>(std::distance(tasks, end));
}

TEST_F(AnnotatorWindowTest, ReleasesTheSceneThatALoadReplaces) {
    Open();
    Load();
    const std::size_t threads = ThreadCount(); // each scene has one
    for (int i = 0; i < 5; ++i) {
        tree->SelectItem(Lever());
        Load();
    }
    EXPECT_LE(ThreadCount(), threads);
}

} // namespace
