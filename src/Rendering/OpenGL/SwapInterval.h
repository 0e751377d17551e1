#pragma once

namespace Rendering::OpenGL {

/// Asks for one frame a refresh of the display: swapping the buffers of the window that is current waits for it. A
/// driver that cannot wait is left as it is.
void WaitForDisplay();

} // namespace Rendering::OpenGL
