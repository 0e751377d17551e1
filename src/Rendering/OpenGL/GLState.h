#pragma once

#include "Rendering/DeviceDraws.h"
#include "Utils/NonAssignable.h"

#include <epoxy/gl.h>
#include <optional>

namespace Rendering::OpenGL {

/// Binds a texture to the first unit and restores the previous one at the end of the scope.
class TextureBinding : public Utils::NonAssignable {
public:
    TextureBinding(GLenum target, GLuint texture);
    ~TextureBinding();

private:
    GLenum target;
    GLint before = 0;
};

/// Binds a framebuffer for drawing for a scope.
class FramebufferBinding : public Utils::NonAssignable {
public:
    explicit FramebufferBinding(GLuint framebuffer);
    ~FramebufferBinding();

private:
    GLint before = 0;
};

/// Binds a framebuffer for reading for a scope.
class ReadBinding : public Utils::NonAssignable {
public:
    explicit ReadBinding(GLuint framebuffer);
    ~ReadBinding();

private:
    GLint before = 0;
};

/// A rectangle of a framebuffer, in pixels from its lower left corner.
struct Viewport {
    GLint x = 0, y = 0;
    GLsizei width = 0, height = 0;

    static Viewport Current();
    void Set() const { glViewport(x, y, width, height); }
    Viewport Part(ViewportPart part) const;
};

/// Restores the viewport at the end of the scope.
class ViewportScope : public Utils::NonAssignable {
public:
    ~ViewportScope() { Set(ViewportPart::Whole); }

    void Set(ViewportPart part);

private:
    std::optional<Viewport> before; ///< empty as long as the viewport is the one from before
};

} // namespace Rendering::OpenGL
