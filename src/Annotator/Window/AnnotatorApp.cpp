#include "Annotator/Window/AnnotatorApp.h"

#include "Annotator/FailureTexts.h"
#include "Annotator/Window/AnnotatorWindow.h"
#include "Annotator/Window/FatalErrorBox.h"
#include "Annotator/Window/ProblemBox.h"
#include "Sim/XPAircraftListLoader.h"

#include <cstdlib>
#include <memory>

namespace Annotator {

void PrepareToolkit() {
    InstallFatalErrorBox();
#ifdef __WXGTK__
    // The canvas gets its OpenGL through GLX, which a Wayland window does not have.
    setenv("GDK_BACKEND", "x11", 1);
#endif
}

bool AnnotatorApp::OnInit() {
    static const auto loader = std::make_unique<Sim::XPAircraftListLoader>();
    try {
        auto* window = new AnnotatorWindow(loader.get());
        window->Show(true);
        return true;
    } catch (const std::exception& error) {
        ShowProblem(nullptr, ScanFailureText(error));
        return false;
    }
}

} // namespace Annotator
