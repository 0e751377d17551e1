#include "Rendering/OpenGL/GLRenderToTextureLock.h"

#include "Rendering/OpenGL/GLError.h"
#include "Utils/Place.h"

namespace Rendering::OpenGL {

namespace {

GLint DepthAttachment(GLenum question) {
    GLint answer = 0;
    glGetFramebufferAttachmentParameteriv(GL_DRAW_FRAMEBUFFER, GL_DEPTH_ATTACHMENT, question, &answer);
    return answer;
}

/// The depth renderbuffer of the framebuffer bound for drawing; 0 if it has none or is a window's framebuffer.
GLuint DepthRenderbuffer(GLint framebuffer) {
    if (framebuffer == 0 || DepthAttachment(GL_FRAMEBUFFER_ATTACHMENT_OBJECT_TYPE) != GL_RENDERBUFFER)
        return 0;
    return static_cast<GLuint>(DepthAttachment(GL_FRAMEBUFFER_ATTACHMENT_OBJECT_NAME));
}

void AttachDepth(GLuint renderbuffer) {
    glFramebufferRenderbuffer(GL_DRAW_FRAMEBUFFER, GL_DEPTH_ATTACHMENT, GL_RENDERBUFFER, renderbuffer);
}

} // namespace

GLRenderToTextureLock::GLRenderToTextureLock(GLGPUBitmap& bitmap, bool keepDepth) : viewport(Viewport::Current()) {
    restored = true; // if the code below throws, there is nothing to restore
    glGetIntegerv(GL_DRAW_FRAMEBUFFER_BINDING, &framebuffer);
    const GLuint depth = keepDepth ? DepthRenderbuffer(framebuffer) : 0;
    glBindFramebuffer(GL_DRAW_FRAMEBUFFER, bitmap.Framebuffer());
    depthShared = depth != 0;
    if (depthShared)
        AttachDepth(depth);
    glViewport(0, 0, static_cast<GLsizei>(bitmap.Size().width), static_cast<GLsizei>(bitmap.Size().height));
    CheckFramebuffer(HERE, "drawing to a bitmap");
    CheckGL(HERE, "drawing to a bitmap");
    restored = false;
}

GLRenderToTextureLock::~GLRenderToTextureLock() {
    Restore();
}

void GLRenderToTextureLock::Restore() {
    if (restored)
        return;
    if (depthShared)
        AttachDepth(0);
    glBindFramebuffer(GL_DRAW_FRAMEBUFFER, static_cast<GLuint>(framebuffer));
    viewport.Set();
    restored = true;
}

} // namespace Rendering::OpenGL
