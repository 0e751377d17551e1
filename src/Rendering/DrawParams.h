#pragma once

#include "Utils/LinearAlgebra.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace Rendering {

/// Parameters for drawing a geometry. Colours are red, green, blue from 0 to 1. The light comes over the viewer's
/// shoulder, from (0.36, 0.48, -0.8) in view space, and lights both sides of a face.
struct GeometryDrawParams {
    bool blend = false;        ///< alpha blending on
    bool plainProgram = false; ///< use the plain shader even if blend is set
    bool depthTest = true;
    bool depthWrite = true;                        ///< only if depthTest is set
    Utils::Vector3 firstColour{0.3f, 0.3f, 0.3f};  ///< ambient light on the texture
    Utils::Vector3 secondColour{0.7f, 0.7f, 0.7f}; ///< directional light on the texture
    Utils::Vector3 thirdColour{0.0f, 0.0f, 0.0f};  ///< added to the lit colour
    Utils::Vector3 fourthColour{0.0f, 0.0f, 0.0f}; ///< highlight, with shaderParam2 as exponent
    float opacity = 1.0f;
    float shaderParam1 = 0.0f;  ///< not read by any shader
    float shaderParam2 = 5.0f;  ///< exponent of the highlight; in EdgeBlend 1 / width of the fade
    float shaderParam3 = -1.0f; ///< not read by any shader
    float shaderParam4 = 0.0f;  ///< in LevelsAdjust the exponent of the curve minus 1
    std::string effect;         ///< name of a special shader; empty for the normal one
    /// Selected by the vertices' blend indices, applied before the world matrix; fewer than 100.
    std::vector<Utils::Matrix4> matrices{4, Utils::Matrix4::Identity()};
    bool leftEye = true;     ///< draw to the left half of the viewport with the left eye's matrix
    bool rightEye = true;    ///< draw to the right half with the right eye's matrix
    bool singleView = false; ///< draw once to the whole viewport with the left eye's matrix
};

/// A draw must have fewer matrices than this; more are a fatal error.
inline constexpr std::size_t kMatrixLimit = 100;

/// The shaders for geometry, which every device has. Without a bitmap the surface is white.
enum class GeometryProgram {
    Plain,               ///< the texture's colours; alpha is the opacity
    Blending,            ///< alpha is the texture's alpha times the opacity
    EdgeBlend,           ///< like Blending, fading out towards the texture's edges
    TimeWarp,            ///< the texture is an image drawn earlier with matrices[0] from world to clip space
    TimeWarpTextureClip, ///< like TimeWarp, transparent outside the image and where the second bitmap is transparent
    LevelsAdjust,        ///< the third colour is the black level, 1 - the fourth the white level
    Fxaa                 ///< antialiases the texture
};
inline constexpr std::size_t kGeometryProgramCount = 7;

/// The shader for the parameters. An unknown effect throws std::out_of_range.
GeometryProgram ProgramOf(const GeometryDrawParams& params);

/// Placement of a rectangle: its centre, its full width and height, and its rotation. World space.
struct DrawRectangle {
    Utils::Vector3 position = Utils::Vector3::Zero();
    Utils::Vector2 size{1.0f, 1.0f};
    Utils::Quaternion rotation = Utils::Quaternion::Identity();
};

/// Parameters for drawing a rectangle.
struct RectDrawParams {
    std::uint32_t mode = 0; ///< 0: both halves; 1: only the half of `eye`; others: once, to the whole viewport
    std::uint32_t eye = 0;  ///< 0 left, 1 right; mode 1 draws nothing for other values
    bool blend = false;
    bool dim = false; ///< brightness 0.1 instead of 1.0, the shader's third parameter
    bool depthTest = true;
    bool depthWrite = true;
    float param1 = 0.0f, param2 = 0.0f, param3 = 0.0f;
    Utils::Vector2 textureOrigin{0.0f, 0.0f}; ///< top left
    Utils::Vector2 textureSize{1.0f, 1.0f};
    Utils::Vector4 colour{1.0f, 1.0f, 1.0f, 1.0f};
    std::string effect; ///< empty or "sobel"
};

enum class RectProgram { Plain, Sobel };
inline constexpr std::size_t kRectProgramCount = 2;

RectProgram ProgramOf(const RectDrawParams& params); ///< throws like the overload for geometry

} // namespace Rendering
