#pragma once

#include <wx/window.h>

namespace Annotator {

/// Gives a control the name by which a screen reader speaks of it, for controls that carry no text of their own.
void SetAccessibleName(wxWindow& control, const char* name);

} // namespace Annotator
