#pragma once

#include "Annotator/Preview/PartColours.h"
#include "Rendering/MemBitmap.h"

#include <vector>
#include <wx/window.h>

namespace Annotator {

/// The entries one below the other, in the window's font and for its scale: blue, green, red, alpha. Without entries, a
/// picture without pixels.
Rendering::MemBitmap LegendPicture(const wxWindow& window, const std::vector<LegendEntry>& entries);

} // namespace Annotator
