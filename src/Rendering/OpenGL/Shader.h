#pragma once

#include "Utils/NonAssignable.h"

#include <epoxy/gl.h>
#include <initializer_list>

namespace Rendering::OpenGL {

/// One compiled program. A text that does not compile is shown in a box of its own in the compiler's words, then it
/// is a fatal error.
class Shader : public Utils::NonAssignable {
public:
    /// The pieces of each text follow each other behind the version line. `name` is for the person who reads the box.
    Shader(const char* name, std::initializer_list<const char*> vertexText,
           std::initializer_list<const char*> fragmentText);
    ~Shader();

    void Use() const { glUseProgram(program); }
    /// -1, which the driver ignores, for a uniform that the program does not read.
    GLint Uniform(const char* uniform) const { return glGetUniformLocation(program, uniform); }
    /// Ties a sampler to a texture unit, a uniform block to a binding point, where the program has them.
    void SetUnit(const char* sampler, GLint unit) const;
    void SetBlock(const char* block, GLuint binding) const;

private:
    GLuint program;
};

} // namespace Rendering::OpenGL
