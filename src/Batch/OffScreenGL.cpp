#include "Batch/OffScreen.h"

#include "Annotator/Preview/CanvasControl.h"
#include "Rendering/OpenGL/EglContext.h"
#include "Rendering/OpenGL/GLFrameTarget.h"

namespace Batch {

Rendering::MemBitmap DrawOffScreen(Rendering::Size size, const std::function<void(Rendering::Context&)>& draw) {
    const Rendering::OpenGL::EglContext device;
    const Rendering::Camera camera; // only supplies the eye matrices
    Rendering::OpenGL::GLContext context(camera);
    Rendering::OpenGL::GLFrameTarget target(context, kSamples);
    target.Resize(size);
    target.Begin(Annotator::kCanvasColour);
    draw(context);
    return target.Read();
}

} // namespace Batch
