#pragma once

#include "Rendering/OpenGL/Quad.h"
#include "Rendering/OpenGL/Shader.h"

namespace Rendering::OpenGL {

/// Draws a camera's raw image over the whole target, undistorted with its distortion map. Where the map points outside
/// the image, the target is unchanged.
class GLLeapShader : public Utils::NonAssignable {
public:
    explicit GLLeapShader(ContextToken owner);

    void Draw(GLuint picture, GLuint distortion) const;

private:
    Shader shader;
    Quad quad;
    GLName<SamplerKind> sampler;
};

} // namespace Rendering::OpenGL
