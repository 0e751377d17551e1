#include "Annotator/Window/AnnotatorApp.h"
#include "Logging/Logger.h"

#include <cstdlib>

int main() {
    Logging::Logger::Create();
    Logging::Logger::Get().Start();
    if (!Annotator::PrepareToolkit())
        return EXIT_FAILURE;
    wxApp::SetInstance(new Annotator::AnnotatorApp);
    int argumentCount = 0;
    return wxEntry(argumentCount, static_cast<char**>(nullptr)) == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}
