#include "Rendering/OpenGL/Blitter.h"

#include "Rendering/OpenGL/GLError.h"
#include "Rendering/OpenGL/GLState.h"

#include <algorithm>

namespace Rendering::OpenGL {

namespace {

/// How much of `size` lies between the origin and the edge.
GLint Fitting(std::uint32_t origin, std::uint32_t size, std::uint32_t sourceEdge, std::uint32_t targetEdge) {
    return static_cast<GLint>(origin < sourceEdge ? std::min({size, sourceEdge - origin, targetEdge}) : 0);
}

} // namespace

void Blitter::Blit(GLGPUBitmap& source, Size origin, Size size, GLGPUBitmap& target) const {
    const GLint width = Fitting(origin.width, size.width, source.Size().width, target.Size().width);
    const GLint height = Fitting(origin.height, size.height, source.Size().height, target.Size().height);
    if (width == 0 || height == 0)
        return;
    const auto left = static_cast<GLint>(origin.width);
    const auto sourceTop = static_cast<GLint>(source.Size().height - origin.height);
    const auto targetTop = static_cast<GLint>(target.Size().height);
    const ReadBinding from(source.Framebuffer());
    const FramebufferBinding to(target.Framebuffer());
    glBlitFramebuffer(left, sourceTop - height, left + width, sourceTop, 0, targetTop - height, width, targetTop,
                      GL_COLOR_BUFFER_BIT, GL_NEAREST);
    CheckGL(HERE, "copying a bitmap");
}

} // namespace Rendering::OpenGL
