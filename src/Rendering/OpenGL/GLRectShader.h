#pragma once

#include "Rendering/Context.h"
#include "Rendering/OpenGL/Quad.h"
#include "Rendering/OpenGL/Shader.h"

#include <array>

namespace Rendering::OpenGL {

/// The shaders that draw an image on a rectangle from -1 to 1 in x and y.
class GLRectShader : public Utils::NonAssignable {
public:
    explicit GLRectShader(ContextToken owner);

    void Draw(const Utils::Matrix4& world, const Utils::Matrix4& view, const Utils::Matrix4& projection, GLuint texture,
              const RectDrawParams& params) const;

private:
    struct Program {
        Program(const char* name, const char* fragmentText);

        Shader shader;
        GLint worldViewProjection, scalars, colour, textureRectangle;
    };

    std::array<Program, kRectProgramCount> programs;
    Quad quad;
    GLName<SamplerKind> sampler;
};

} // namespace Rendering::OpenGL
