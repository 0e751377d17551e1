#pragma once

namespace Rendering::OpenGL {

/// Enables vertical synchronisation: swapping the current window's buffers waits for the display's refresh. Only logs
/// if the driver does not support it.
void WaitForDisplay();

} // namespace Rendering::OpenGL
