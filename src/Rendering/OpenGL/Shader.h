#pragma once

#include "Utils/NonAssignable.h"

#include <epoxy/gl.h>
#include <initializer_list>

namespace Rendering::OpenGL {

/// One compiled shader program. If a text does not compile, the compiler's messages are shown to the user, followed by
/// a fatal error.
class Shader : public Utils::NonAssignable {
public:
    /// The pieces of each text are joined after the version line. `name` appears in the error box.
    Shader(const char* name, std::initializer_list<const char*> vertexText,
           std::initializer_list<const char*> fragmentText);
    ~Shader();

    void Use() const { glUseProgram(program); }
    /// -1, which the driver ignores, for a uniform that the shader does not read.
    GLint Uniform(const char* uniform) const { return glGetUniformLocation(program, uniform); }
    /// Assigns a texture unit to a sampler, a binding point to a uniform block, if the shader has them.
    void SetUnit(const char* sampler, GLint unit) const;
    void SetBlock(const char* block, GLuint binding) const;

private:
    GLuint program;
};

} // namespace Rendering::OpenGL
