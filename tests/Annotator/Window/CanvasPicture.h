#pragma once

#include "Annotator/Window/DXCanvas.h"

#include <wx/image.h>

namespace Support {

/// What the canvas shows: on Linux what stands on the screen, on Windows what the next frame draws into the back
/// buffer, as a window inside another one stays black on the screen under Wine.
wxImage CanvasPicture(Annotator::DXCanvas& canvas);

/// A key goes down or up over the canvas: on Windows by a message that the toolkit's loop takes from the queue, as it
/// filters keys there; on Linux as an event.
void SendKey(Annotator::DXCanvas& canvas, int code, bool down);

} // namespace Support
