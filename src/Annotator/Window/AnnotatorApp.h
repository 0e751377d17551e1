#pragma once

#include <wx/app.h>

namespace Annotator {

/// To be called by the process entry before the toolkit starts. False, after a message on the standard error stream,
/// where there is no display.
bool PrepareToolkit();

class AnnotatorApp : public wxApp {
public:
    /// False, after a message, when the aircraft cannot be listed.
    bool OnInit() override;
};

} // namespace Annotator
