#pragma once

#include "Utils/LinearAlgebra.h"

#include <epoxy/gl.h>

namespace Rendering::OpenGL {

/// Trilinear. `wrap` applies to u and v.
void SetUpSampler(GLuint sampler, GLint wrap);
/// Whether Mesa's software renderer draws, which can take minutes for a frame with anisotropic filters.
bool DrawsInSoftware();
/// With the maximum anisotropy of the device, up to 16; with none in software.
void MakeAnisotropic(GLuint sampler);
void BindPicture(GLuint unit, GLuint texture, GLuint sampler);

/// Converts a clip-space matrix to GL, whose depth ranges from -w to w instead of 0 to w.
inline Utils::Matrix4 WithGLDepth(Utils::Matrix4 toClip) {
    toClip.col(2) = 2.0f * toClip.col(2) - toClip.col(3);
    return toClip;
}

} // namespace Rendering::OpenGL
