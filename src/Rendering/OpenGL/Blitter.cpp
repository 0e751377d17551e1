#include "Rendering/OpenGL/Blitter.h"

#include "Rendering/CopyRegion.h"
#include "Rendering/OpenGL/GLError.h"
#include "Rendering/OpenGL/GLState.h"

namespace Rendering::OpenGL {

void Blitter::Blit(GLGPUBitmap& source, Size origin, Size size, GLGPUBitmap& target) const {
    const Size part = CopiedPart(origin, size, source.Size(), target.Size());
    if (part.Area() == 0)
        return;
    const auto width = static_cast<GLint>(part.width), height = static_cast<GLint>(part.height);
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
