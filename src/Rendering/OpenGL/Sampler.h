#pragma once

#include "Utils/LinearAlgebra.h"

#include <epoxy/gl.h>

namespace Rendering::OpenGL {

/// Trilinear. `wrap` holds for u and v.
void SetUpSampler(GLuint sampler, GLint wrap);
/// As anisotropic as the device can, up to 16.
void MakeAnisotropic(GLuint sampler);
void BindPicture(GLuint unit, GLuint texture, GLuint sampler);

/// A matrix to clip space for GL, whose depth runs from -w to w instead of from 0 to w.
inline Utils::Matrix4 WithGLDepth(Utils::Matrix4 toClip) {
    toClip.col(2) = 2.0f * toClip.col(2) - toClip.col(3);
    return toClip;
}

} // namespace Rendering::OpenGL
