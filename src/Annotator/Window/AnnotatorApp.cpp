#include "Annotator/Window/AnnotatorApp.h"

#include "Annotator/DataFiles.h"
#include "Annotator/FailureTexts.h"
#include "Annotator/Window/AnnotatorWindow.h"
#include "Annotator/Window/FatalErrorBox.h"
#include "Annotator/Window/ProblemBox.h"
#include "Annotator/Window/WxText.h"
#include "Logging/Logger.h"
#include "Sim/XPAircraftListLoader.h"

#include <cstdlib>
#include <iostream>
#include <memory>
#include <string>

#ifdef __WXGTK__
#include <dlfcn.h>
#endif

namespace Annotator {

namespace {

void LogAssert(const wxString& file, int line, const wxString& function, const wxString& condition,
               const wxString& message) {
    const wxString text = "Toolkit assertion failed: " + condition + " in " + function + ": " + message;
    Logging::Logger::Get().Log(file.utf8_str(), line, ToNarrow(text));
}

#ifdef __WXGTK__
/// Uses the X library that the toolkit has loaded. The connection stays open: an X server resets when its last client
/// disconnects, which could race with the toolkit's own connection.
bool HasDisplay() {
    auto* const open = reinterpret_cast<void* (*)(const char*)>(dlsym(RTLD_DEFAULT, "XOpenDisplay"));
    static void* const display = open ? open(nullptr) : nullptr;
    return !open || display;
}
#else
bool HasDisplay() {
    return true;
}
#endif

std::string Variable(const char* name) {
    const char* value = std::getenv(name);
    return value ? value : "";
}

std::string NoDisplayReason() {
    if (const std::string display = Variable("DISPLAY"); !display.empty())
        return "the one in DISPLAY (" + display + ") cannot be opened.";
    if (!Variable("WAYLAND_DISPLAY").empty())
        return "DISPLAY is not set. For a Wayland session, install the package xwayland and log in again.";
    return "DISPLAY is not set.";
}

} // namespace

bool PrepareToolkit() {
    InstallFatalErrorBox();
    wxSetAssertHandler(LogAssert);
#ifdef __WXGTK__
    // The canvas uses OpenGL through GLX, which Wayland windows do not support.
    setenv("GDK_BACKEND", "x11", 1);
#endif
    if (HasDisplay())
        return true;
    std::cerr << "The Vorelle Aircraft Annotator needs a display, but " << NoDisplayReason()
              << "\nUse vorelle-batch on a machine without a display." << std::endl;
    return false;
}

bool AnnotatorApp::OnInit() {
    // Outlives the window, which the toolkit destroys after OnExit.
    static const auto loader = std::make_unique<Sim::XPAircraftListLoader>();
    // The user can still view aircraft if the files cannot be installed.
    if (const std::string problem = InstallDataFiles(); !problem.empty())
        ShowProblem(nullptr, problem);
    try {
        auto* window = new AnnotatorWindow(loader.get());
        window->Show(true);
        return true;
    } catch (const std::exception& error) {
        if (!WasFatalError(error))
            ShowProblem(nullptr, ScanFailureText(error));
        return false;
    }
}

} // namespace Annotator
