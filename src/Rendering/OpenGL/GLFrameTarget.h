#pragma once

#include "Rendering/OpenGL/GLContext.h"

#include <optional>

namespace Rendering::OpenGL {

/// Render target of a frame: colour and 32-bit float depth, which a window's framebuffer lacks. The context must be
/// current for every operation and on destruction.
class GLFrameTarget : public Utils::NonAssignable {
public:
    /// `samples` above 1 enables antialiasing; limited to the device's maximum.
    explicit GLFrameTarget(const GLContext& context, std::uint32_t samples = 1);

    /// Recreates the target; a side of 0 pixels becomes 1.
    void Resize(Size newSize);
    Rendering::Size Size() const { return size; }
    /// Makes the whole of this target current for draws; clears it to the colour and to the farthest depth.
    void Begin(const Utils::Vector4& colour);
    /// Copies the image to the window's framebuffer; the caller swaps the buffers.
    void Present();
    /// The image: red, green, blue, alpha, top row first. Waits for the device.
    MemBitmap Read();

private:
    struct Buffers {
        explicit Buffers(const ContextToken& owner) : colour(owner), depth(owner), framebuffer(owner) {}

        GLName<RenderbufferKind> colour, depth;
        GLName<FramebufferKind> framebuffer;
    };

    ContextToken owner;
    GLsizei samples;
    Rendering::Size size;
    std::optional<Buffers> buffers;
};

} // namespace Rendering::OpenGL
