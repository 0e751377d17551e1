#pragma once

#include <wx/window.h>

namespace Annotator {

/// Sets the name that a screen reader announces, for controls without text of their own.
void SetAccessibleName(wxWindow& control, const char* name);

} // namespace Annotator
