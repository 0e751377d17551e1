#include "Rendering/OpenGL/Sampler.h"

#include <algorithm>
#include <string_view>

namespace Rendering::OpenGL {

namespace {

constexpr float kAnisotropy = 16.0f;

} // namespace

bool DrawsInSoftware() {
    const auto* const name = reinterpret_cast<const char*>(glGetString(GL_RENDERER));
    return name && std::string_view(name).starts_with("llvmpipe");
}

void SetUpSampler(GLuint sampler, GLint wrap) {
    glSamplerParameteri(sampler, GL_TEXTURE_WRAP_S, wrap);
    glSamplerParameteri(sampler, GL_TEXTURE_WRAP_T, wrap);
    glSamplerParameteri(sampler, GL_TEXTURE_WRAP_R, GL_CLAMP_TO_EDGE);
    glSamplerParameteri(sampler, GL_TEXTURE_MIN_FILTER, GL_LINEAR_MIPMAP_LINEAR);
    glSamplerParameteri(sampler, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
}

void MakeAnisotropic(GLuint sampler) {
    const bool supported = epoxy_has_gl_extension("GL_EXT_texture_filter_anisotropic") ||
                           epoxy_has_gl_extension("GL_ARB_texture_filter_anisotropic");
    if (!supported || DrawsInSoftware())
        return;
    float most = 1.0f;
    glGetFloatv(GL_MAX_TEXTURE_MAX_ANISOTROPY_EXT, &most);
    glSamplerParameterf(sampler, GL_TEXTURE_MAX_ANISOTROPY_EXT, std::min(most, kAnisotropy));
}

void BindPicture(GLuint unit, GLuint texture, GLuint sampler) {
    glActiveTexture(GL_TEXTURE0 + unit);
    glBindTexture(GL_TEXTURE_2D, texture);
    glBindSampler(unit, sampler);
}

} // namespace Rendering::OpenGL
