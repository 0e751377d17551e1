#pragma once

#include "Rendering/Context.h"

#include <epoxy/gl.h>

namespace Rendering::OpenGL {

/// A framebuffer's picture, from its lower left corner on: red, green, blue, alpha, top row first. Waits for the
/// device. The framebuffer is not multisampled.
MemBitmap ReadPixels(GLuint framebuffer, Size size);

} // namespace Rendering::OpenGL
