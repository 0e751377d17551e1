// libepoxy's header must come before the platform's GL.
#include <epoxy/gl.h>

#include "Annotator/Window/WindowFixture.h"

#include <set>

namespace {

using namespace Support;
using testing::HasSubstr;

/// The driver's error code after each checked step of the device; 0 for an intact driver.
int calls = 0, firstFailing = 0, lastFailing = 0;
PFNGLGETERRORPROC driversError = nullptr;

GLenum FailingError() {
    const GLenum error = driversError();
    ++calls;
    return calls >= firstFailing && calls <= lastFailing ? GL_OUT_OF_MEMORY : error;
}

/// Takes the driver's errors from FailingError for the duration of a scope.
class FailingDriver : Utils::NonAssignable {
public:
    FailingDriver(int first, int last) {
        calls = 0;
        firstFailing = first;
        lastFailing = last;
        driversError = epoxy_glGetError;
        epoxy_glGetError = FailingError;
    }
    ~FailingDriver() { epoxy_glGetError = driversError; }
};

class FailingDriverTest : public WindowTest {
protected:
    /// The window's first frame, a load, a click, a selection, a resize and closing. Returns how often the driver's
    /// errors were queried.
    int OpenPickAndClose() {
        Open();
        Load();
        const wxSize size = canvas->GetClientSize();
        Click({size.x / 2, size.y / 2});
        PumpFrames(1);
        window->SetSize(1000, 600);
        PumpFrames(2);
        const int asked = calls;
        Close();
        return asked;
    }
};

/// For a failure at each step of the device, the fatal error and its consequences are shown, and the window can be
/// closed.
TEST_F(FailingDriverTest, ShowsTheFatalErrorForAnyFailedStep) {
    Open(); // also makes the library resolve the driver's functions
    Close();
    int steps = 0;
    {
        const FailingDriver whole(0, 0);
        steps = OpenPickAndClose();
    }
    ASSERT_TRUE(dialogs.texts.empty()) << dialogs.texts[0];
    ASSERT_GT(steps, 50);
    std::set<std::string> places;
    // The first steps create the device; frames repeat theirs.
    for (int step = 1; step <= steps; step += step < 25 ? 1 : 23) {
        dialogs.texts.clear();
        dialogs.captions.clear();
        const FailingDriver failing(step, step);
        OpenPickAndClose();
        if (calls < step)
            break; // some runs take fewer steps
        ASSERT_GE(dialogs.texts.size(), 2u) << "step " << step;
        EXPECT_EQ(dialogs.captions[0], "Vorelle FSX") << "step " << step;
        EXPECT_THAT(dialogs.texts[0], HasSubstr("Vorelle Fatal Error Encountered (1285, ")) << "step " << step;
        EXPECT_THAT(dialogs.texts[1], HasSubstr("The cockpit cannot be shown")) << "step " << step;
        places.insert(dialogs.texts[0].substr(0, dialogs.texts[0].find("Please")));
    }
    EXPECT_GE(places.size(), 10u) << "distinct locations of driver checks";
}

TEST_F(FailingDriverTest, EndsWithAPermanentlyLostDriver) {
    Open();
    Close();
    for (const int step : {1, 5, 40, 80}) {
        dialogs.texts.clear();
        const FailingDriver lost(step, INT_MAX);
        OpenPickAndClose();
        EXPECT_GE(dialogs.texts.size(), 2u) << "step " << step;
    }
}

} // namespace
