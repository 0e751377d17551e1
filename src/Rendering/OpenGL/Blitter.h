#pragma once

#include "Rendering/OpenGL/GLGPUBitmap.h"

namespace Rendering::OpenGL {

/// Copies a region of one bitmap to the top left of another, pixel by pixel; what does not fit is left out. A
/// multisampled source is resolved. Origin from the picture's top left, in pixels.
class Blitter {
public:
    void Blit(GLGPUBitmap& source, Size origin, Size size, GLGPUBitmap& target) const;
};

} // namespace Rendering::OpenGL
