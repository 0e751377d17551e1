#include "Annotator/Window/DXCanvas.h"

#include "Annotator/Window/CanvasPicture.h"
#include "Annotator/Window/WindowFixture.h"

#include <algorithm>
#include <chrono>
#include <cmath>

namespace {

using namespace Support;

class DXCanvasTest : public WindowTest {
protected:
    void Mouse(wxEventTypeTag<wxMouseEvent> type, wxPoint at, bool leftDown = false) {
        wxMouseEvent event(type);
        event.SetPosition(at);
        event.SetLeftDown(leftDown);
        canvas->ProcessWindowEvent(event);
    }
    void Press(int code) { SendKey(*canvas, code, true); }
    void Release(int code) { SendKey(*canvas, code, false); }
    wxImage Picture() { return CanvasPicture(*canvas); }
};

/// Counts frames and runs a test's function in the next one.
struct CountingStage final : Rendering::Stage {
    void Render(Rendering::Context&, const Utils::Matrix4&, const Utils::Matrix4&) override {
        ++frames;
        if (const auto work = std::exchange(once, nullptr))
            work();
    }
    int frames = 0;
    std::function<void()> once;
};

TEST_F(DXCanvasTest, ClearsToMidGreyWithoutAnAircraft) {
    Open();
    const wxImage image = Picture();
    const std::size_t bytes = 3u * static_cast<std::size_t>(image.GetWidth() * image.GetHeight());
    const auto [darkest, brightest] = std::minmax_element(image.GetData(), image.GetData() + bytes);
    EXPECT_NEAR(*darkest, 128, 1);
    EXPECT_NEAR(*brightest, 128, 1);
}

TEST_F(DXCanvasTest, ShowsThePartAndMovesItWithTheSlider) {
    Open();
    Load();
    const wxSize size = canvas->GetClientSize();
    tree->SelectItem(Item({"N: 0", "N: 1", "P: 1"}));
    PumpFrames(3);
    // The square in the middle of the view is 0.2 metres wide at 1 metre; "sim/lever" moves it by 0.5 metres at its
    // end.
    const wxColour lever = ColourAt(Picture(), size.x / 2, size.y / 2);
    auto& pane = *Find<Annotator::AnimationsPane>(*window);
    Choose(*Find<wxChoice>(pane), 1);
    Find<wxSlider>(pane)->SetValue(100);
    Fire(*Find<wxSlider>(pane), wxEVT_SLIDER);
    ASSERT_TRUE(PumpUntil([&] { return ColourAt(Picture(), size.x / 2, size.y / 2) != lever; }));
    // Half the height of the view is tan(0.5) metres at 1 metre.
    const int moved = static_cast<int>(0.5 / std::tan(0.5) * size.y / 2);
    EXPECT_EQ(ColourAt(Picture(), size.x / 2 + moved, size.y / 2), lever);
    Click({size.x / 2 + moved, size.y / 2});
    EXPECT_EQ(IdLabel(), "ID: (1,0)") << "picking follows";
}

TEST_F(DXCanvasTest, RotatesTheCameraWithADragAndSelectsNothing) {
    Open();
    Load();
    const wxSize size = canvas->GetClientSize();
    Mouse(wxEVT_LEFT_DOWN, {size.x / 2, size.y / 2});
    EXPECT_TRUE(canvas->HasCapture()) << "a drag that leaves the window continues";
    Mouse(wxEVT_MOTION, {size.x / 2 + size.x / 4, size.y / 2 - size.y / 8}, true);
    Mouse(wxEVT_LEFT_UP, {size.x / 2, size.y / 2});
    EXPECT_FALSE(canvas->HasCapture());
    EXPECT_NEAR(canvas->control.camera.Rotation().z(), 0.5f, 0.01f);
    EXPECT_EQ(IdLabel(), "ID: None");
}

TEST_F(DXCanvasTest, MovesTheCameraWhileAKeyIsDownAndTheFocusStays) {
    Open();
    const auto position = [&] { return canvas->control.camera.Position(); };
    const auto stops = [&] {
        PumpFrames(1);
        const Utils::Vector3 at = position();
        PumpFrames(3);
        return position() == at;
    };
    Press('W');
    ASSERT_TRUE(PumpUntil([&] { return position().z() != 0.0f; }));
    Release('W');
    EXPECT_TRUE(stops());
    Press(WXK_RIGHT);
    ASSERT_TRUE(PumpUntil([&] { return position().x() != 0.0f; }));
    wxFocusEvent lost(wxEVT_KILL_FOCUS);
    canvas->ProcessWindowEvent(lost);
    EXPECT_TRUE(stops());
}

TEST_F(DXCanvasTest, LetsTabOutAndKeepsOtherKeys) {
    Open();
    canvas->SetFocus();
    PumpFrames(1);
    Press(WXK_LEFT);
    Release(WXK_LEFT);
    PumpFrames(1);
    EXPECT_EQ(wxWindow::FindFocus(), canvas);
    Press(WXK_TAB);
    PumpFrames(1);
    EXPECT_NE(wxWindow::FindFocus(), canvas);
}

TEST_F(DXCanvasTest, RunsNoFrameAndNoPickInsideAFrame) {
    Open();
    Load();
    const auto counter = std::make_shared<CountingStage>();
    canvas->stages.Add(counter);
    const wxSize size = canvas->GetClientSize();
    int framesInside = -1;
    counter->once = [&] {
        const int before = counter->frames;
        PumpFrames(3);
        Click({size.x / 2, size.y / 2});
        framesInside = counter->frames - before;
    };
    ASSERT_TRUE(PumpUntil([&] { return framesInside >= 0; }));
    EXPECT_EQ(framesInside, 0);
    EXPECT_EQ(IdLabel(), "ID: None");
}

TEST(PresentWatchTest, TellsPresentsThatDoNotWaitFromOthers) {
    Annotator::PresentWatch watch;
    using std::chrono::milliseconds;
    for (int round = 0; round < 2; ++round) { // a longer present restarts the count
        for (int i = 0; i < 7; ++i)
            EXPECT_TRUE(watch.Waits(milliseconds(1))) << i;
        for (int i = 0; i < 2; ++i)
            EXPECT_FALSE(watch.Waits(milliseconds(4)));
        EXPECT_TRUE(watch.Waits(milliseconds(5)));
    }
}

TEST_F(DXCanvasTest, RunsNoFrameWhileHiddenAndLimitsThatLoopToo) {
    Open();
    const auto counter = std::make_shared<CountingStage>();
    canvas->stages.Add(counter);
    canvas->Hide();
    PumpFrames(2);
    const int hidden = counter->frames;
    const auto start = std::chrono::steady_clock::now();
    PumpFrames(4);
    EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(45));
    EXPECT_EQ(counter->frames, hidden);
    canvas->Show();
    EXPECT_TRUE(PumpUntil([&] { return counter->frames > hidden; }));
}

TEST_F(DXCanvasTest, FollowsTheSizeOfTheWindow) {
    Open();
    Load();
    window->SetSize(1000, 500);
    PumpFrames(5);
    const wxSize size = canvas->GetClientSize();
    Click({size.x / 2, size.y / 2});
    EXPECT_EQ(IdLabel(), "ID: (1,0)");
}

} // namespace
