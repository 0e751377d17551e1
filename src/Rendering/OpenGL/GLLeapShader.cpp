#include "Rendering/OpenGL/GLLeapShader.h"

#include "Rendering/OpenGL/GLDrawState.h"
#include "Rendering/OpenGL/GLError.h"
#include "Rendering/OpenGL/Sampler.h"
#include "Rendering/OpenGL/ShaderTexts.h"

#include <utility>

namespace Rendering::OpenGL {

namespace {

constexpr float kQuadDepth = 0.5f;

} // namespace

GLLeapShader::GLLeapShader(ContextToken owner)
    : shader("LeapTransform", {kLeapVertex}, {kLeapPlain}), quad(owner, kQuadDepth), sampler(std::move(owner)) {
    shader.SetUnit("picture", 0);
    shader.SetUnit("distortion", 1);
    SetUpSampler(sampler, GL_CLAMP_TO_EDGE);
    CheckGL(HERE, "making the camera image shader");
}

void GLLeapShader::Draw(GLuint picture, GLuint distortion) const {
    shader.Use();
    BindPicture(0, picture, sampler);
    BindPicture(1, distortion, sampler);
    const GLDrawState state(false, false, false);
    quad.Draw();
    CheckGL(HERE, "drawing a camera image");
}

} // namespace Rendering::OpenGL
