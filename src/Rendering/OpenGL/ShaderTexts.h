#pragma once

/// The shaders' GLSL texts, in pieces that are joined after the version line.
namespace Rendering::OpenGL {

extern const char* const kGeometryUniforms; ///< start of both stages of every geometry shader
extern const char* const kGeometryVertex;
extern const char* const kTimeWarpVertex;
extern const char* const kLighting; ///< start of every geometry fragment shader
extern const char* const kGeometryPlain;
extern const char* const kGeometryBlending;
extern const char* const kGeometryEdgeBlend;
extern const char* const kGeometryTimeWarp;
extern const char* const kGeometryTimeWarpTextureClip;
extern const char* const kGeometryLevels;
extern const char* const kGeometryFxaa;

extern const char* const kRectUniforms; ///< start of both stages of every rectangle shader
extern const char* const kRectVertex;
extern const char* const kRectPlain;
extern const char* const kRectSobel;

extern const char* const kLeapVertex;
extern const char* const kLeapPlain;

} // namespace Rendering::OpenGL
