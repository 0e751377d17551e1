#pragma once

#include <wx/app.h>

namespace Annotator {

/// To be called by the process entry before the toolkit starts.
void PrepareToolkit();

class AnnotatorApp : public wxApp {
public:
    /// False, after a message, when the aircraft cannot be listed.
    bool OnInit() override;
};

} // namespace Annotator
