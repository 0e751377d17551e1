#pragma once

#include "Rendering/OpenGL/GLGPUBitmap.h"
#include "Rendering/OpenGL/GLState.h"

namespace Rendering::OpenGL {

/// Draws go to a bitmap, which must outlive it, until it is restored.
class GLRenderToTextureLock : public RenderToTextureLock {
public:
    /// With `keepDepth` the depth of the earlier target serves on, where that is not a window's own.
    GLRenderToTextureLock(GLGPUBitmap& bitmap, bool keepDepth);
    ~GLRenderToTextureLock() override;

    void Restore() override;

private:
    GLint framebuffer = 0; ///< the earlier one
    Viewport viewport;     ///< the earlier one
    bool depthShared = false;
};

} // namespace Rendering::OpenGL
