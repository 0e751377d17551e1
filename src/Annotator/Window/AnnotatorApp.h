#pragma once

#include <wx/app.h>

namespace Annotator {

/// Must be called by the process entry before the toolkit starts. Returns false after a message on stderr if there is
/// no display.
bool PrepareToolkit();

class AnnotatorApp : public wxApp {
public:
    /// Returns false after a message if the aircraft cannot be listed.
    bool OnInit() override;
};

} // namespace Annotator
