#pragma once

#include <string>
#include <wx/window.h>

namespace Annotator {

/// Tells a person what went wrong, and waits until it is dismissed.
void ShowProblem(wxWindow* parent, const std::string& text);

} // namespace Annotator
