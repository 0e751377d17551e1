#pragma once

#include "Rendering/OpenGL/GLGPUBitmap.h"

namespace Rendering::OpenGL {

/// Copies a region of one bitmap to the top left of another, unscaled and clipped to the target. A multisampled source
/// is resolved. The origin is in pixels from the image's top left.
class Blitter {
public:
    void Blit(GLGPUBitmap& source, Size origin, Size size, GLGPUBitmap& target) const;
};

} // namespace Rendering::OpenGL
