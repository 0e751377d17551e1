#pragma once

#include "Rendering/Context.h"
#include "Rendering/OpenGL/GLGeometry.h"
#include "Rendering/OpenGL/Shader.h"

#include <array>

namespace Rendering::OpenGL {

/// The shaders that draw meshes.
class GLGeometryShader : public Utils::NonAssignable {
public:
    explicit GLGeometryShader(ContextToken owner);

    /// One draw. `textures` are bound to units from 0: the mesh's own, then the further ones.
    void Draw(const Utils::Matrix4& world, const Utils::Matrix4& view, const Utils::Matrix4& projection,
              const GLGeometry& geometry, std::span<const GLuint> textures, const GeometryDrawParams& params);

private:
    /// A shader with the locations of its uniforms; -1 for those that it does not read.
    struct Program {
        Program(const char* name, const char* vertexText, const char* fragmentText);

        Shader shader;
        GLint world, worldView, worldViewProjection;
        GLint colours, scalars, matrixCount;
    };

    void UploadMatrices(const std::vector<Utils::Matrix4>& matrices, const Program& program);

    std::array<Program, kGeometryProgramCount> programs;
    GLName<BufferKind> matrixBuffer;
    GLName<SamplerKind> sampler;
};

} // namespace Rendering::OpenGL
