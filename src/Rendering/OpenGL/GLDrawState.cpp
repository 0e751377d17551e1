#include "Rendering/OpenGL/GLDrawState.h"

#include <epoxy/gl.h>

namespace Rendering::OpenGL {

namespace {

void Switch(GLenum capability, bool on) {
    if (on)
        glEnable(capability);
    else
        glDisable(capability);
}

} // namespace

GLDrawState::GLDrawState(bool blend, bool depthTest, bool depthWrite) : masked(depthTest && !depthWrite) {
    Switch(GL_BLEND, blend);
    if (blend)
        glBlendFuncSeparate(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA, GL_ONE, GL_ZERO);
    Switch(GL_DEPTH_TEST, depthTest); // if off, depth is not written either
    if (depthTest)
        glDepthFunc(GL_LEQUAL);
    if (masked)
        glDepthMask(GL_FALSE);
    glDisable(GL_CULL_FACE);
}

GLDrawState::~GLDrawState() {
    if (masked)
        glDepthMask(GL_TRUE);
}

} // namespace Rendering::OpenGL
