#include "Rendering/OpenGL/PixelReader.h"

#include "Rendering/OpenGL/GLError.h"
#include "Rendering/OpenGL/GLState.h"
#include "Utils/Place.h"

#include <algorithm>

namespace Rendering::OpenGL {

MemBitmap ReadPixels(GLuint framebuffer, Size size) {
    MemBitmap picture(size.width, size.height);
    const ReadBinding binding(framebuffer);
    glReadPixels(0, 0, static_cast<GLsizei>(size.width), static_cast<GLsizei>(size.height), GL_RGBA, GL_UNSIGNED_BYTE,
                 picture.Pixels().data());
    CheckGL(HERE, "reading pixels");
    const auto row = [&](std::uint64_t y) { return picture.Pixels().subspan(y * size.width, size.width); };
    for (std::uint64_t y = 0; y < size.height / 2; ++y)
        std::ranges::swap_ranges(row(y), row(size.height - 1 - y));
    return picture;
}

} // namespace Rendering::OpenGL
