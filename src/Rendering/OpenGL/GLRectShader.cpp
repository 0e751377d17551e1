#include "Rendering/OpenGL/GLRectShader.h"

#include "Rendering/DeviceDraws.h"
#include "Rendering/OpenGL/GLDrawState.h"
#include "Rendering/OpenGL/GLError.h"
#include "Rendering/OpenGL/Sampler.h"
#include "Rendering/OpenGL/ShaderTexts.h"

#include <utility>

namespace Rendering::OpenGL {

GLRectShader::Program::Program(const char* name, const char* fragmentText)
    : shader(name, {kRectUniforms, kRectVertex}, {kRectUniforms, fragmentText}),
      worldViewProjection(shader.Uniform("worldViewProjection")), scalars(shader.Uniform("scalars")),
      colour(shader.Uniform("colour")), textureRectangle(shader.Uniform("textureRectangle")) {
    shader.SetUnit("picture", 0);
}

// In the order of RectProgram.
GLRectShader::GLRectShader(ContextToken owner)
    : programs{Program{"Rect", kRectPlain}, Program{"RectSobel", kRectSobel}}, quad(owner, 0.0f),
      sampler(std::move(owner)) {
    SetUpSampler(sampler, GL_CLAMP_TO_EDGE);
    MakeAnisotropic(sampler);
    CheckGL(HERE, "making the rectangle shader");
}

void GLRectShader::Draw(const Utils::Matrix4& world, const Utils::Matrix4& view, const Utils::Matrix4& projection,
                        GLuint texture, const RectDrawParams& params) const {
    const Program& program = programs[static_cast<std::size_t>(ProgramOf(params))];
    program.shader.Use();
    const Utils::Matrix4 toClip = WithGLDepth(world * view * projection);
    glUniformMatrix4fv(program.worldViewProjection, 1, GL_FALSE, toClip.data());
    glUniform4fv(program.scalars, 1, RectScalars(params).data());
    glUniform4fv(program.colour, 1, params.colour.data());
    glUniform4fv(program.textureRectangle, 1, TextureRectangle(params).data());
    BindPicture(0, texture, sampler);
    const GLDrawState state(params.blend, params.depthTest, params.depthWrite);
    quad.Draw();
    CheckGL(HERE, "drawing a rectangle");
}

} // namespace Rendering::OpenGL
