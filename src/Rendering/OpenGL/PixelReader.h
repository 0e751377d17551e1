#pragma once

#include "Rendering/Context.h"

#include <epoxy/gl.h>

namespace Rendering::OpenGL {

/// A framebuffer's pixels, starting at its lower left corner: red, green, blue, alpha, top row first. Waits for the
/// device. The framebuffer must not be multisampled.
MemBitmap ReadPixels(GLuint framebuffer, Size size);

} // namespace Rendering::OpenGL
