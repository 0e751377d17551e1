#pragma once

#include "Rendering/Context.h"
#include "Rendering/OpenGL/GLName.h"

#include <optional>

namespace Rendering::OpenGL {

/// A texture of 8 bits per channel. Its first row in GL's order is the image's bottom row, so that images from files
/// and drawn images have the same orientation.
class GLGPUBitmap : public GPUBitmap {
public:
    /// One level, or the whole chain of mip levels down to one pixel, with undefined pixels. `samples` above 1 makes a
    /// multisampled texture, which has one level.
    GLGPUBitmap(ContextToken owner, Rendering::Size size, bool withMips, std::uint32_t samples = 1);

    Rendering::Size Size() const override { return size; }
    bool IsMultisampled() const { return multisampled; }
    const ContextToken& Owner() const { return texture.Owner(); }
    GLuint Texture() const { return texture; }
    /// The framebuffer for drawing into the full-size level; created on first use.
    GLuint Framebuffer();

    /// Uploads levels from the full size down, top row first. `format` is GL_RGBA or GL_BGRA. If fewer levels are
    /// given, the texture has only those.
    void Upload(std::span<const MemBitmap> levels, GLenum format);
    /// Generates the smaller levels from the full size.
    void GenerateMips();

private:
    GLenum Target() const { return multisampled ? GL_TEXTURE_2D_MULTISAMPLE : GL_TEXTURE_2D; }

    Rendering::Size size;
    bool withMips, multisampled;
    GLName<TextureKind> texture;
    std::optional<GLName<FramebufferKind>> framebuffer;
};

} // namespace Rendering::OpenGL
