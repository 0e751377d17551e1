#include "Rendering/OpenGL/GLState.h"

#include <array>

namespace Rendering::OpenGL {

TextureBinding::TextureBinding(GLenum target, GLuint texture) : target(target) {
    glActiveTexture(GL_TEXTURE0);
    glGetIntegerv(target == GL_TEXTURE_2D ? GL_TEXTURE_BINDING_2D : GL_TEXTURE_BINDING_2D_MULTISAMPLE, &before);
    glBindTexture(target, texture);
}

TextureBinding::~TextureBinding() {
    glActiveTexture(GL_TEXTURE0);
    glBindTexture(target, static_cast<GLuint>(before));
}

FramebufferBinding::FramebufferBinding(GLuint framebuffer) {
    glGetIntegerv(GL_DRAW_FRAMEBUFFER_BINDING, &before);
    glBindFramebuffer(GL_DRAW_FRAMEBUFFER, framebuffer);
}

FramebufferBinding::~FramebufferBinding() {
    glBindFramebuffer(GL_DRAW_FRAMEBUFFER, static_cast<GLuint>(before));
}

ReadBinding::ReadBinding(GLuint framebuffer) {
    glGetIntegerv(GL_READ_FRAMEBUFFER_BINDING, &before);
    glBindFramebuffer(GL_READ_FRAMEBUFFER, framebuffer);
}

ReadBinding::~ReadBinding() {
    glBindFramebuffer(GL_READ_FRAMEBUFFER, static_cast<GLuint>(before));
}

// The driver answers from main memory without waiting for the device.
Viewport Viewport::Current() {
    std::array<GLint, 4> values{};
    glGetIntegerv(GL_VIEWPORT, values.data());
    return {values[0], values[1], values[2], values[3]};
}

Viewport Viewport::Part(ViewportPart part) const {
    const GLsizei half = width / 2;
    switch (part) {
    case ViewportPart::LeftHalf:
        return {x, y, half, height};
    case ViewportPart::RightHalf:
        return {x + half, y, width - half, height};
    default:
        return *this;
    }
}

void ViewportScope::Set(ViewportPart part) {
    if (part == ViewportPart::Whole && !before)
        return;
    if (!before)
        before = Viewport::Current();
    before->Part(part).Set();
}

} // namespace Rendering::OpenGL
