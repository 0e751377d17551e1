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
    FailingDriverTest() {
        Open(); // makes the library resolve the driver's functions
        Close();
    }

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
    const int steps = [&] {
        const FailingDriver whole(0, 0);
        return OpenPickAndClose();
    }();
    ASSERT_EQ(testing::PrintToString(dialogs.texts), "{}");
    ASSERT_GT(steps, 50);
    std::set<std::string> places;
    // The first steps create the device; frames repeat theirs.
    for (int step = 1; step <= steps; step += step < 25 ? 1 : 23) {
        SCOPED_TRACE("step " + std::to_string(step));
        dialogs.texts.clear();
        const FailingDriver failing(step, step);
        OpenPickAndClose();
        if (calls < step && step > steps / 2)
            break; // some runs take fewer steps
        ASSERT_GE(dialogs.texts.size(), 2u);
        EXPECT_THAT(dialogs.texts[0], HasSubstr("Vorelle Fatal Error Encountered (1285, "));
        EXPECT_THAT(dialogs.texts[1], HasSubstr("The cockpit cannot be shown"));
        places.insert(dialogs.texts[0].substr(0, dialogs.texts[0].find("Please")));
    }
    EXPECT_GE(places.size(), 10u) << "distinct locations of driver checks";
}

TEST_F(FailingDriverTest, EndsWithAPermanentlyLostDriver) {
    for (const int step : {1, 5, 40, 80}) {
        dialogs.texts.clear();
        const FailingDriver lost(step, INT_MAX);
        OpenPickAndClose();
        EXPECT_GE(dialogs.texts.size(), 2u) << "step " << step;
    }
}

} // namespace
