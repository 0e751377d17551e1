#pragma once

#include "Rendering/OpenGL/GLGPUBitmap.h"
#include "Rendering/OpenGL/GLState.h"

namespace Rendering::OpenGL {

/// Directs draws to a bitmap until restored. The bitmap must outlive it.
class GLRenderToTextureLock : public RenderToTextureLock {
public:
    /// With `keepDepth` the depth of the previous target stays in use, unless that is a window's framebuffer.
    GLRenderToTextureLock(GLGPUBitmap& bitmap, bool keepDepth);
    ~GLRenderToTextureLock() override;

    void Restore() override;

private:
    GLint framebuffer = 0; ///< the previous one
    Viewport viewport;     ///< the previous one
    bool depthShared = false;
};

} // namespace Rendering::OpenGL
