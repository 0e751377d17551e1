#pragma once

#include "Rendering/Context.h"
#include "Rendering/OpenGL/GLName.h"

#include <optional>

namespace Rendering::OpenGL {

/// A texture of 8 bits a channel. Its first row in GL's order is the picture's bottom row, so that a picture put in
/// from a file and one drawn into it stand alike.
class GLGPUBitmap : public GPUBitmap {
public:
    /// One level, or the whole chain of mip levels down to one pixel, with undefined pixels. `samples` above 1 makes a
    /// multisampled texture, which has one level.
    GLGPUBitmap(ContextToken owner, Rendering::Size size, bool withMips, std::uint32_t samples = 1);

    Rendering::Size Size() const override { return size; }
    bool IsMultisampled() const { return multisampled; }
    const ContextToken& Owner() const { return texture.Owner(); }
    GLuint Texture() const { return texture; }
    /// The framebuffer that draws into the full-size level; made when it is first asked for.
    GLuint Framebuffer();

    /// Puts in levels from the full size down; the top row first in `levels`. `format` is GL_RGBA or GL_BGRA. A chain
    /// that ends early is the whole chain from then on.
    void Upload(std::span<const MemBitmap> levels, GLenum format);
    /// Makes the smaller levels from the full size.
    void GenerateMips();

private:
    GLenum Target() const { return multisampled ? GL_TEXTURE_2D_MULTISAMPLE : GL_TEXTURE_2D; }

    Rendering::Size size;
    bool withMips, multisampled;
    GLName<TextureKind> texture;
    std::optional<GLName<FramebufferKind>> framebuffer;
};

} // namespace Rendering::OpenGL
