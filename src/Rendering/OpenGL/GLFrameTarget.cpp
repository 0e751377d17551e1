#include "Rendering/OpenGL/GLFrameTarget.h"

#include "Rendering/OpenGL/GLError.h"
#include "Rendering/OpenGL/GLState.h"
#include "Rendering/OpenGL/PixelReader.h"

#include <algorithm>

namespace Rendering::OpenGL {

namespace {

/// Blended draws leave alpha below 1, and a compositor may then show what is behind the window.
void MakeOpaque() {
    const float opaque[] = {0.0f, 0.0f, 0.0f, 1.0f};
    glColorMask(GL_FALSE, GL_FALSE, GL_FALSE, GL_TRUE);
    glClearBufferfv(GL_COLOR, 0, opaque);
    glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);
}

} // namespace

GLFrameTarget::GLFrameTarget(const GLContext& context, std::uint32_t samples) : owner(context.Token()) {
    GLint most = 0;
    glGetIntegerv(GL_MAX_SAMPLES, &most);
    this->samples = samples > 1 ? std::min(static_cast<GLsizei>(samples), most) : 0;
    Resize({1, 1});
}

void GLFrameTarget::Resize(Rendering::Size newSize) {
    size = {std::max(newSize.width, 1u), std::max(newSize.height, 1u)};
    const auto width = static_cast<GLsizei>(size.width), height = static_cast<GLsizei>(size.height);
    buffers.reset();
    buffers.emplace(owner);
    glBindRenderbuffer(GL_RENDERBUFFER, buffers->colour);
    glRenderbufferStorageMultisample(GL_RENDERBUFFER, samples, GL_RGBA8, width, height);
    glBindRenderbuffer(GL_RENDERBUFFER, buffers->depth);
    glRenderbufferStorageMultisample(GL_RENDERBUFFER, samples, GL_DEPTH_COMPONENT32F, width, height);
    const FramebufferBinding binding(buffers->framebuffer);
    glFramebufferRenderbuffer(GL_DRAW_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_RENDERBUFFER, buffers->colour);
    glFramebufferRenderbuffer(GL_DRAW_FRAMEBUFFER, GL_DEPTH_ATTACHMENT, GL_RENDERBUFFER, buffers->depth);
    CheckFramebuffer(HERE, "making a frame's target");
    CheckGL(HERE, "making a frame's target");
}

void GLFrameTarget::Begin(const Utils::Vector4& colour) {
    glBindFramebuffer(GL_DRAW_FRAMEBUFFER, buffers->framebuffer);
    glViewport(0, 0, static_cast<GLsizei>(size.width), static_cast<GLsizei>(size.height));
    const float farthest = 1.0f;
    glClearBufferfv(GL_COLOR, 0, colour.data());
    glClearBufferfv(GL_DEPTH, 0, &farthest);
    CheckGL(HERE, "beginning a frame");
}

void GLFrameTarget::Present() {
    const auto width = static_cast<GLint>(size.width), height = static_cast<GLint>(size.height);
    const ReadBinding from(buffers->framebuffer);
    glBindFramebuffer(GL_DRAW_FRAMEBUFFER, 0);
    glBlitFramebuffer(0, 0, width, height, 0, 0, width, height, GL_COLOR_BUFFER_BIT, GL_NEAREST);
    MakeOpaque();
    CheckGL(HERE, "presenting a frame");
}

MemBitmap GLFrameTarget::Read() {
    GLGPUBitmap resolved(owner, size, false); // multisampled pixels cannot be read
    const auto width = static_cast<GLint>(size.width), height = static_cast<GLint>(size.height);
    const ReadBinding from(buffers->framebuffer);
    const FramebufferBinding to(resolved.Framebuffer());
    glBlitFramebuffer(0, 0, width, height, 0, 0, width, height, GL_COLOR_BUFFER_BIT, GL_NEAREST);
    return ReadPixels(resolved.Framebuffer(), size);
}

} // namespace Rendering::OpenGL
