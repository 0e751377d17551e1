// The tests run inside a toolkit application with an event loop, so that real windows can be shown and driven.
#include "Annotator/Window/AnnotatorApp.h"
#include "Annotator/Window/Toolkit.h"
#include "Logging/Logger.h"
#include "Support/TemporaryFolder.h"
#include "Utils/FatalError.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <iostream>
#include <wx/evtloop.h>
#include <wx/timer.h>

namespace {

class TestApp : public wxApp {
public:
    bool OnInit() override { return true; }
    bool OnExceptionInMainLoop() override { throw; }
};

void FailOnAssert(const wxString& file, int line, const wxString&, const wxString& condition, const wxString& message) {
    ADD_FAILURE() << file << ":" << line << ": toolkit assertion failed: " << condition << " " << message;
}

/// Writes to stdout what the program shows for a fatal error before the toolkit starts.
int FailBeforeToolkit() {
    Support::DialogRecorder dialogs;
    dialogs.whileUp = [&] { std::cout << dialogs.captions.back() << "\n" << dialogs.texts.back() << std::endl; };
    try {
        Utils::FatalError("Annotator\\Main.cpp", 7);
    } catch (const std::exception&) {
        return 3;
    }
}

/// The program's own application. It prints the title of the window to stdout and finally closes it.
class RealApp : public Annotator::AnnotatorApp {
public:
    bool OnInit() override {
        if (!AnnotatorApp::OnInit())
            return false;
        wxWindow& window = *wxTopLevelWindows.GetFirst()->GetData();
        std::cout << (window.IsShown() ? window.GetLabel() : wxString("hidden")) << std::endl;
        closing.Bind(wxEVT_TIMER, [&window](wxTimerEvent&) { window.Close(); });
        return closing.StartOnce(5000);
    }

private:
    wxTimer closing;
};

int RunRealApp() {
    const Support::DialogRecorder dialogs;
    wxApp::SetInstance(new RealApp);
    int argumentCount = 0;
    return wxEntry(argumentCount, static_cast<char**>(nullptr));
}

} // namespace

int main(int argc, char** argv) {
#ifndef _WIN32
    const Support::TemporaryFolder userData;
    setenv("XDG_DATA_HOME", userData.path.c_str(), 1);
#endif
    Logging::Logger::Create();
    Logging::Logger::Get().Start();
    if (!Annotator::PrepareToolkit())
        return 1;
    if (argc > 1 && std::string(argv[1]) == "--fail-before-toolkit")
        return FailBeforeToolkit();
    if (argc > 1 && std::string(argv[1]) == "--real-app")
        return RunRealApp();

    testing::InitGoogleTest(&argc, argv);
    wxSetAssertHandler(FailOnAssert);
    wxApp::SetInstance(new TestApp);
    int argumentCount = 0;
    if (!wxEntryStart(argumentCount, static_cast<char**>(nullptr)) || !wxTheApp->CallOnInit())
        return 1;
    wxTheApp->SetExitOnFrameDelete(false);
    int result = 1;
    {
        wxEventLoop loop;
        const wxEventLoopActivator active(&loop);
        result = RUN_ALL_TESTS();
    }
    wxEntryCleanup();
    return result;
}
