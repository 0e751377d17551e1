#include "Rendering/OpenGL/GLError.h"

#include "Logging/Logger.h"
#include "Utils/FatalError.h"

#include <array>
#include <epoxy/gl.h>
#include <string>

namespace Rendering::OpenGL {

namespace {

std::string NameOf(GLenum error) {
    switch (error) {
    case GL_INVALID_ENUM:
        return "invalid enumeration";
    case GL_INVALID_VALUE:
        return "invalid value";
    case GL_INVALID_OPERATION:
        return "invalid operation";
    case GL_INVALID_FRAMEBUFFER_OPERATION:
        return "invalid framebuffer operation";
    case GL_OUT_OF_MEMORY:
        return "out of memory";
    case GL_CONTEXT_LOST:
        return "context lost";
    default:
        return "error " + std::to_string(error);
    }
}

bool HasDebugMessages() {
    return epoxy_gl_version() >= 43 || epoxy_has_gl_extension("GL_KHR_debug");
}

/// The driver's messages since the last call.
std::string DriverMessages() {
    std::string all;
    if (!HasDebugMessages())
        return all;
    std::array<char, 1024> message;
    GLsizei length = 0;
    while (glGetDebugMessageLog(1, message.size(), nullptr, nullptr, nullptr, nullptr, &length, message.data()) == 1)
        all += std::string(": ") + message.data();
    return all;
}

} // namespace

void CheckGL(const char* file, std::int32_t line, const char* operation) {
    const GLenum error = glGetError();
    if (error == GL_NO_ERROR)
        return;
    Logging::Logger::Get().Log(file, line,
                               std::string("OpenGL, ") + operation + ": " + NameOf(error) + DriverMessages());
    Utils::FatalError(file, line, static_cast<std::int32_t>(error));
}

void CheckFramebuffer(const char* file, std::int32_t line, const char* operation) {
    const GLenum status = glCheckFramebufferStatus(GL_DRAW_FRAMEBUFFER);
    if (status == GL_FRAMEBUFFER_COMPLETE)
        return;
    Logging::Logger::Get().Log(file, line,
                               std::string("OpenGL, ") + operation + ": the framebuffer is incomplete, status " +
                                   std::to_string(status) + DriverMessages());
    Utils::FatalError(file, line, static_cast<std::int32_t>(status));
}

void KeepDriverMessages() {
    if (!HasDebugMessages())
        return;
    glEnable(GL_DEBUG_OUTPUT);
    glDebugMessageControl(GL_DONT_CARE, GL_DONT_CARE, GL_DONT_CARE, 0, nullptr, GL_FALSE);
    glDebugMessageControl(GL_DONT_CARE, GL_DEBUG_TYPE_ERROR, GL_DONT_CARE, 0, nullptr, GL_TRUE);
}

} // namespace Rendering::OpenGL
