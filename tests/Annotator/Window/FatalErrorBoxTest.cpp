#include "Annotator/Window/FatalErrorBox.h"

#include "Annotator/Window/Toolkit.h"
#include "Support/Program.h"
#include "Utils/FatalError.h"

#include <atomic>
#include <gmock/gmock.h>
#include <thread>

namespace {

using testing::HasSubstr;

void Fail() {
    EXPECT_THROW(Utils::FatalError("Rendering\\Some.cpp", 41), std::exception);
}

TEST(FatalErrorBox, ShowsTheTextOnTheThreadThatFailed) {
    Support::DialogRecorder dialogs;
    bool up = false;
    dialogs.whileUp = [&] { up = Annotator::FatalErrorBoxIsUp(); };
    Fail();
    ASSERT_EQ(dialogs.texts.size(), 1u);
    EXPECT_EQ(dialogs.captions[0], "Vorelle FSX");
    EXPECT_THAT(dialogs.texts[0], HasSubstr("Rendering\\Some.cpp: Line 41\n"));
    EXPECT_TRUE(up);
    EXPECT_FALSE(Annotator::FatalErrorBoxIsUp());
}

TEST(FatalErrorBox, IsShownByTheInterfaceThreadForAnotherThread) {
    Support::DialogRecorder dialogs;
    std::thread::id shownBy;
    dialogs.whileUp = [&] { shownBy = std::this_thread::get_id(); };
    std::atomic<bool> done = false;
    std::thread other([&] {
        Fail();
        done = true;
    });
    EXPECT_TRUE(Support::PumpUntil([&] { return done.load(); }));
    other.join();
    ASSERT_EQ(dialogs.texts.size(), 1u);
    EXPECT_EQ(shownBy, std::this_thread::get_id());
}

TEST(FatalErrorBox, DoesNotDeadlockWhenTheInterfaceThreadWaitsForTheOneThatFailed) {
    Support::DialogRecorder dialogs;
    testing::internal::CaptureStderr();
    std::thread other(Fail);
    other.join();
    EXPECT_THAT(testing::internal::GetCapturedStderr(), HasSubstr("Rendering\\Some.cpp: Line 41\n"));
    Support::PumpFrames(3);
    EXPECT_TRUE(dialogs.texts.empty()) << "a box that was given up must not come late";
}

TEST(FatalErrorBox, ShowsAheadOfTheToolkitsStart) {
    Support::Program program({boost::filesystem::read_symlink("/proc/self/exe").string(), "--fail-before-toolkit"},
                             "/");
    const Support::ProgramResult result = program.Wait();
    EXPECT_EQ(result.exitCode, 3) << result.errors;
    EXPECT_THAT(result.output, HasSubstr("Vorelle FSX\nVorelle Fatal Error Encountered"));
    EXPECT_THAT(result.output, HasSubstr("Annotator\\Main.cpp: Line 7\n"));
}

} // namespace
