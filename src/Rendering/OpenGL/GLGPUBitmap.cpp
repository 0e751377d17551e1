#include "Rendering/OpenGL/GLGPUBitmap.h"

#include "Rendering/OpenGL/GLError.h"
#include "Rendering/OpenGL/GLState.h"

#include <algorithm>
#include <bit>
#include <utility>

namespace Rendering::OpenGL {

namespace {

/// GL's rows are bottom to top.
MemBitmap BottomRowFirst(const MemBitmap& bitmap) {
    MemBitmap turned(bitmap.Width(), bitmap.Height());
    for (std::uint64_t y = 0; y < bitmap.Height(); ++y)
        std::ranges::copy(bitmap.Pixels().subspan(y * bitmap.Width(), bitmap.Width()),
                          turned.Pixels().begin() +
                              static_cast<std::ptrdiff_t>((bitmap.Height() - 1 - y) * bitmap.Width()));
    return turned;
}

GLint LastLevel(Rendering::Size size) {
    return std::bit_width(std::max(size.width, size.height)) - 1;
}

} // namespace

GLGPUBitmap::GLGPUBitmap(ContextToken owner, Rendering::Size size, bool withMips, std::uint32_t samples)
    : size(size), withMips(withMips && samples <= 1), multisampled(samples > 1), texture(std::move(owner)) {
    const auto width = static_cast<GLsizei>(size.width), height = static_cast<GLsizei>(size.height);
    const TextureBinding binding(Target(), texture);
    if (multisampled) {
        glTexImage2DMultisample(Target(), static_cast<GLsizei>(samples), GL_RGBA8, width, height, GL_TRUE);
    } else {
        glTexImage2D(Target(), 0, GL_RGBA8, width, height, 0, GL_RGBA, GL_UNSIGNED_BYTE, nullptr);
        // Without a maximum level the driver treats a texture that lacks smaller levels as incomplete and shows black.
        glTexParameteri(Target(), GL_TEXTURE_MAX_LEVEL, this->withMips ? LastLevel(size) : 0);
    }
    CheckGL(HERE, "making a texture");
}

GLuint GLGPUBitmap::Framebuffer() {
    if (!framebuffer) {
        framebuffer.emplace(Owner());
        const FramebufferBinding binding(*framebuffer);
        glFramebufferTexture2D(GL_DRAW_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, Target(), texture, 0);
        CheckFramebuffer(HERE, "making a texture's framebuffer");
    }
    return *framebuffer;
}

void GLGPUBitmap::Upload(std::span<const MemBitmap> levels, GLenum format) {
    const TextureBinding binding(Target(), texture);
    for (std::size_t level = 0; level < levels.size(); ++level) {
        const MemBitmap turned = BottomRowFirst(levels[level]);
        glTexImage2D(Target(), static_cast<GLint>(level), GL_RGBA8, static_cast<GLsizei>(turned.Width()),
                     static_cast<GLsizei>(turned.Height()), 0, format, GL_UNSIGNED_BYTE, turned.Pixels().data());
    }
    if (levels.size() > 1)
        glTexParameteri(Target(), GL_TEXTURE_MAX_LEVEL, static_cast<GLint>(levels.size()) - 1);
    else
        GenerateMips();
    CheckGL(HERE, "filling a texture");
}

void GLGPUBitmap::GenerateMips() {
    if (!withMips)
        return;
    const TextureBinding binding(Target(), texture);
    glGenerateMipmap(Target());
    CheckGL(HERE, "making mip levels");
}

} // namespace Rendering::OpenGL
