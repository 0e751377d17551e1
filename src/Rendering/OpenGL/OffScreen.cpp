#include "Rendering/OffScreen.h"

#include "Rendering/OpenGL/EglContext.h"
#include "Rendering/OpenGL/GLFrameTarget.h"

namespace Rendering {

MemBitmap DrawOffScreen(Size size, const Utils::Vector4& background, const std::function<void(Context&)>& draw) {
    const OpenGL::EglContext device;
    const Camera camera; // only supplies the eye matrices
    OpenGL::GLContext context(camera);
    OpenGL::GLFrameTarget target(context, kOffScreenSamples);
    target.Resize(size);
    target.Begin(background);
    draw(context);
    return target.Read();
}

} // namespace Rendering
