#pragma once

#include "Annotator/Window/DXCanvas.h"

#include <wx/image.h>

namespace Support {

/// The image of the canvas: on Linux read from the screen, on Windows from the back buffer of the next frame, because a
/// child window stays black on the screen under Wine.
wxImage CanvasPicture(Annotator::DXCanvas& canvas);

/// Presses or releases a key over the canvas: on Windows by a message in the queue, where the toolkit's loop filters
/// keys; on Linux as an event.
void SendKey(Annotator::DXCanvas& canvas, int code, bool down);

} // namespace Support
