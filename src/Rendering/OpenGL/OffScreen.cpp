#include "Rendering/OffScreen.h"

#include "Rendering/OpenGL/EglContext.h"
#include "Rendering/OpenGL/GLFrameTarget.h"

namespace Rendering {

struct OffScreen::Device {
    const OpenGL::EglContext egl{};
    const Camera camera{}; // only supplies the eye matrices
    OpenGL::GLContext context{camera};
    OpenGL::GLFrameTarget target{context, kOffScreenSamples};
};

OffScreen::OffScreen(Size size) : device(std::make_unique<Device>()) {
    device->target.Resize(size);
}

OffScreen::~OffScreen() = default;

MemBitmap OffScreen::Draw(const Utils::Vector4& background, const std::function<void(Context&)>& draw) {
    device->target.Begin(background);
    draw(device->context);
    return device->target.Read();
}

} // namespace Rendering
