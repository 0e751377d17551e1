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

#ifdef __WXGTK__
#include <dlfcn.h>
#endif

namespace Annotator {

namespace {

void LogAssert(const wxString& file, int line, const wxString& function, const wxString& condition,
               const wxString& message) {
    const wxString text = "The toolkit asserts " + condition + " in " + function + ": " + message;
    Logging::Logger::Get().Log(file.utf8_str(), line, ToNarrow(text));
}

#ifdef __WXGTK__
/// Asks the X library that the toolkit has loaded. The connection stays open: a server whose last client leaves starts
/// anew, and would drop the toolkit's own connection if that came in the midst of it.
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

} // namespace

bool PrepareToolkit() {
    InstallFatalErrorBox();
    wxSetAssertHandler(LogAssert);
#ifdef __WXGTK__
    // The canvas gets its OpenGL through GLX, which a Wayland window does not have.
    setenv("GDK_BACKEND", "x11", 1);
#endif
    if (HasDisplay())
        return true;
    std::cerr << "The Vorelle Aircraft Annotator needs a display, and DISPLAY names none that can be opened.\n"
                 "vorelle-batch does its work without one."
              << std::endl;
    return false;
}

bool AnnotatorApp::OnInit() {
    // Outlives the window, which the toolkit destroys after the application's last word.
    static const auto loader = std::make_unique<Sim::XPAircraftListLoader>();
    // A person may still look at aircraft where the files cannot be laid.
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
