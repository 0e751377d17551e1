#include "Rendering/OpenGL/GLState.h"

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

} // namespace Rendering::OpenGL
