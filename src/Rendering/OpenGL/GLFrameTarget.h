#pragma once

#include "Rendering/OpenGL/GLContext.h"

#include <optional>

namespace Rendering::OpenGL {

/// What a frame is drawn to: colour and a depth of 32-bit floats, which a window's own framebuffer does not have.
/// The context must be current for every operation and at the end.
class GLFrameTarget : public Utils::NonAssignable {
public:
    /// `samples` above 1 smooths edges; at most what the device has.
    explicit GLFrameTarget(const GLContext& context, std::uint32_t samples = 1);

    /// Remakes the target; a side of no pixels counts as one.
    void Resize(Size newSize);
    Rendering::Size Size() const { return size; }
    /// Draws go to the whole of this target from now on; clears it to the colour and to the farthest depth.
    void Begin(const Utils::Vector4& colour);
    /// Copies the picture to the window's framebuffer, whose buffers are the caller's to swap.
    void Present();
    /// The picture: red, green, blue, alpha, top row first. Waits for the device.
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
