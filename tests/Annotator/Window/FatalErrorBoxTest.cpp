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

TEST(FatalErrorBox, IsShownByTheInterfaceThreadForAnotherThread) {
    Support::DialogRecorder dialogs;
    dialogs.whileUp = [caller = std::this_thread::get_id()] {
        EXPECT_EQ(std::this_thread::get_id(), caller);
        EXPECT_TRUE(Annotator::FatalErrorBoxIsUp());
    };
    std::atomic<bool> done = false;
    std::thread other([&] {
        Fail();
        done = true;
    });
    EXPECT_TRUE(Support::PumpUntil([&] { return done.load(); }));
    other.join();
    EXPECT_EQ(dialogs.texts.size(), 1u);
    EXPECT_FALSE(Annotator::FatalErrorBoxIsUp());
}

TEST(FatalErrorBox, DoesNotDeadlockWhenTheInterfaceThreadWaitsForTheFailedOne) {
    Support::DialogRecorder dialogs;
    testing::internal::CaptureStderr();
    std::thread other(Fail);
    other.join();
    EXPECT_THAT(testing::internal::GetCapturedStderr(), HasSubstr("Rendering\\Some.cpp: Line 41\n"));
    Support::PumpFrames(3);
    EXPECT_EQ(dialogs.texts.size(), 1u) << "the box opens later";
}

TEST(FatalErrorBox, IsShownBeforeTheToolkitStarts) {
    Support::Program program({boost::filesystem::read_symlink("/proc/self/exe").string(), "--fail-before-toolkit"},
                             "/");
    const Support::ProgramResult result = program.Wait();
    EXPECT_EQ(result.exitCode, 3) << result.errors;
    EXPECT_THAT(result.output, HasSubstr("Vorelle FSX\nVorelle Fatal Error Encountered"));
    EXPECT_THAT(result.output, HasSubstr("Annotator\\Main.cpp: Line 7\n"));
}

/// Without OpenGL 3.3 the program ends by itself after the fatal error's box.
TEST(RealApp, ShowsItsWindowAndEndsWithoutADevice) {
    const Support::TemporaryFolder installation;
    boost::filesystem::create_directories(installation.path / "Aircraft");
    for (const bool hasDevice : {true, false}) {
        if (!hasDevice)
            setenv("MESA_GL_VERSION_OVERRIDE", "2.1", 1);
        Support::Program program({boost::filesystem::read_symlink("/proc/self/exe").string(), "--real-app"},
                                 installation.path.string());
        unsetenv("MESA_GL_VERSION_OVERRIDE");
        const Support::ProgramResult result = program.Wait();
        EXPECT_EQ(result.exitCode, hasDevice ? 0 : 1) << result.errors;
        EXPECT_EQ(result.output, "Vorelle Aircraft Annotator\n");
    }
    EXPECT_TRUE(boost::filesystem::exists(installation.path / "QVRA/Models/Sphere.obj"));
}

} // namespace
