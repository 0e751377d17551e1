#pragma once

#include "Rendering/OpenGL/EglContext.h"
#include "Rendering/OpenGL/GLContext.h"
#include "Rendering/OpenGL/GLFrameTarget.h"
#include "Rendering/OpenGL/Sampler.h"

namespace Conformance {

/// OpenGL without a window.
class EglDevice {
public:
    ~EglDevice() { egl.MakeCurrent(); }

    Rendering::OpenGL::GLContext& Context() { return context; }
    void MakeCurrent() { egl.MakeCurrent(); }
    static bool IsAnisotropic() { return !Rendering::OpenGL::DrawsInSoftware(); }
    void Begin(Rendering::Size size) {
        if (frame.Size() != size)
            frame.Resize(size);
        frame.Begin({0, 0, 0, 0});
    }
    Rendering::MemBitmap ReadFrame() { return frame.Read(); }
    Rendering::MemBitmap Read(Rendering::GPUBitmap& bitmap) { return context.ReadBitmap(bitmap); }

private:
    Rendering::OpenGL::EglContext egl;
    Rendering::Camera camera;
    Rendering::OpenGL::GLContext context{camera};
    Rendering::OpenGL::GLFrameTarget frame{context};
};

} // namespace Conformance
