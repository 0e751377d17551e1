#include "Rendering/OpenGL/GLGeometryShader.h"

#include "Rendering/OpenGL/GLDrawState.h"
#include "Rendering/OpenGL/GLError.h"
#include "Rendering/OpenGL/Sampler.h"
#include "Rendering/OpenGL/ShaderTexts.h"
#include "Utils/FatalError.h"

#include <algorithm>
#include <utility>

namespace Rendering::OpenGL {

namespace {

constexpr GLuint kMatrixBinding = 0;
constexpr std::size_t kMatrixBufferSize = kMatrixLimit * sizeof(Utils::Matrix4);

bool AreIdentities(const std::vector<Utils::Matrix4>& matrices) {
    static const Utils::Matrix4 identity = Utils::Matrix4::Identity();
    return std::ranges::all_of(matrices, [](const Utils::Matrix4& matrix) { return matrix == identity; });
}

void SetMatrix(GLint location, const Utils::Matrix4& matrix) {
    // A row-major matrix for row vectors has the same memory layout as GL's column-major one for column vectors.
    glUniformMatrix4fv(location, 1, GL_FALSE, matrix.data());
}

} // namespace

GLGeometryShader::Program::Program(const char* name, const char* vertexText, const char* fragmentText)
    : shader(name, {kGeometryUniforms, vertexText}, {kGeometryUniforms, kLighting, fragmentText}),
      world(shader.Uniform("world")), worldView(shader.Uniform("worldView")),
      worldViewProjection(shader.Uniform("worldViewProjection")), colours(shader.Uniform("colours")),
      scalars(shader.Uniform("scalars")), matrixCount(shader.Uniform("matrixCount")) {
    shader.SetUnit("picture", 0);
    shader.SetUnit("furtherPicture", 1);
    shader.SetBlock("Matrices", kMatrixBinding);
}

// In the order of GeometryProgram.
GLGeometryShader::GLGeometryShader(ContextToken owner)
    : programs{Program{"Geometry", kGeometryVertex, kGeometryPlain},
               Program{"GeometryWithBlending", kGeometryVertex, kGeometryBlending},
               Program{"GeometryEdgeBlend", kGeometryVertex, kGeometryEdgeBlend},
               Program{"GeometryTW", kTimeWarpVertex, kGeometryTimeWarp},
               Program{"GeometryTW_TextureClip", kTimeWarpVertex, kGeometryTimeWarpTextureClip},
               Program{"GeometryLevels", kGeometryVertex, kGeometryLevels},
               Program{"FXAA", kGeometryVertex, kGeometryFxaa}},
      matrixBuffer(owner), sampler(std::move(owner)) {
    glBindBuffer(GL_UNIFORM_BUFFER, matrixBuffer);
    glBufferData(GL_UNIFORM_BUFFER, kMatrixBufferSize, nullptr, GL_STREAM_DRAW);
    SetUpSampler(sampler, GL_REPEAT);
    MakeAnisotropic(sampler);
    CheckGL(HERE, "making the geometry shader");
}

void GLGeometryShader::UploadMatrices(const std::vector<Utils::Matrix4>& matrices, const Program& program) {
    // Needed even if no matrix is read: a draw with a uniform block without a buffer is undefined.
    glBindBufferBase(GL_UNIFORM_BUFFER, kMatrixBinding, matrixBuffer);
    if (program.matrixCount < 0)
        return;
    const bool used = !AreIdentities(matrices);
    glUniform1i(program.matrixCount, used ? static_cast<GLint>(matrices.size()) : 0);
    if (!used)
        return;
    // Reallocated each time: the driver may still read the old data for an earlier draw.
    glBufferData(GL_UNIFORM_BUFFER, kMatrixBufferSize, nullptr, GL_STREAM_DRAW);
    glBufferSubData(GL_UNIFORM_BUFFER, 0, static_cast<GLsizeiptr>(matrices.size() * sizeof(Utils::Matrix4)),
                    matrices.front().data());
}

void GLGeometryShader::Draw(const Utils::Matrix4& world, const Utils::Matrix4& view, const Utils::Matrix4& projection,
                            const GLGeometry& geometry, std::span<const GLuint> textures,
                            const GeometryDrawParams& params) {
    if (params.matrices.size() >= kMatrixLimit)
        Utils::FatalError(HERE);
    const Program& program = programs[static_cast<std::size_t>(ProgramOf(params))];
    program.shader.Use();
    const Utils::Matrix4 worldView = world * view;
    SetMatrix(program.world, world);
    SetMatrix(program.worldView, worldView);
    SetMatrix(program.worldViewProjection, WithGLDepth(worldView * projection));
    Eigen::Matrix<float, 4, 3, Eigen::RowMajor> colours;
    colours << params.firstColour, params.secondColour, params.thirdColour, params.fourthColour;
    glUniform3fv(program.colours, 4, colours.data());
    const float scalars[] = {params.opacity, params.shaderParam1, params.shaderParam2, params.shaderParam3,
                             params.shaderParam4};
    glUniform1fv(program.scalars, 5, scalars); // a uniform that the shader does not read is at -1, which GL ignores
    UploadMatrices(params.matrices, program);
    for (std::size_t unit = 0; unit < textures.size(); ++unit)
        BindPicture(static_cast<GLuint>(unit), textures[unit], sampler);
    const GLDrawState state(params.blend, params.depthTest, params.depthWrite);
    geometry.Draw();
    CheckGL(HERE, "drawing a geometry");
}

} // namespace Rendering::OpenGL
