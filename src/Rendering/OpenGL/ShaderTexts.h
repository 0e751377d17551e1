#pragma once

/// The programs' GLSL texts, in pieces that are put together behind the version line.
namespace Rendering::OpenGL {

extern const char* const kGeometryUniforms; ///< heads both stages of every geometry program
extern const char* const kGeometryVertex;
extern const char* const kTimeWarpVertex;
extern const char* const kLighting; ///< heads every geometry fragment text
extern const char* const kGeometryPlain;
extern const char* const kGeometryBlending;
extern const char* const kGeometryEdgeBlend;
extern const char* const kGeometryTimeWarp;
extern const char* const kGeometryTimeWarpTextureClip;
extern const char* const kGeometryLevels;
extern const char* const kGeometryFxaa;

extern const char* const kRectUniforms; ///< heads both stages of every rectangle program
extern const char* const kRectVertex;
extern const char* const kRectPlain;
extern const char* const kRectSobel;

extern const char* const kLeapVertex;
extern const char* const kLeapPlain;

} // namespace Rendering::OpenGL
