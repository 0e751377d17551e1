#pragma once

#include "Utils/LinearAlgebra.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace Rendering {

/// How one geometry is drawn. Colours are red, green, blue from 0 to 1. The light comes over the viewer's shoulder,
/// from (0.36, 0.48, -0.8) in view space, and shines on both sides of a face.
struct GeometryDrawParams {
    bool blend = false;        ///< alpha blending on
    bool plainProgram = false; ///< with blend on, stay with the plain program
    bool depthTest = true;
    bool depthWrite = true;                        ///< only where depthTest is on
    Utils::Vector3 firstColour{0.3f, 0.3f, 0.3f};  ///< ambient light on the texture
    Utils::Vector3 secondColour{0.7f, 0.7f, 0.7f}; ///< directional light on the texture
    Utils::Vector3 thirdColour{0.0f, 0.0f, 0.0f};  ///< added to what the lights give
    Utils::Vector3 fourthColour{0.0f, 0.0f, 0.0f}; ///< highlight, as sharp as shaderParam2 says
    float opacity = 1.0f;
    float shaderParam1 = 0.0f;  ///< read by no program
    float shaderParam2 = 5.0f;  ///< exponent of the highlight; in EdgeBlend one over the width of the fading
    float shaderParam3 = -1.0f; ///< read by no program
    float shaderParam4 = 0.0f;  ///< in LevelsAdjust the exponent of the curve less 1
    std::string effect;         ///< name of a special program; empty means the normal one
    /// By the vertices' blend indices, ahead of the world matrix; fewer than 100.
    std::vector<Utils::Matrix4> matrices{4, Utils::Matrix4::Identity()};
    bool leftEye = true;     ///< to the left half of the viewport, with the left eye's matrix
    bool rightEye = true;    ///< to the right half, with the right eye's
    bool singleView = false; ///< once to the whole viewport, with the left eye's matrix
};

/// A draw takes fewer matrices than this; more are a fatal error.
inline constexpr std::size_t kMatrixLimit = 100;

/// The programs that every device has for geometry. Without a bitmap the surface is white.
enum class GeometryProgram {
    Plain,               ///< the texture's colours with the opacity as alpha
    Blending,            ///< alpha is the texture's times the opacity
    EdgeBlend,           ///< as Blending, fading out towards the texture's edges
    TimeWarp,            ///< the texture is a picture drawn earlier with matrices[0] from world to clip space
    TimeWarpTextureClip, ///< as TimeWarp, nothing beyond the picture and where the second bitmap is transparent
    LevelsAdjust,        ///< the third colour is the level of black, one less the fourth that of white
    Fxaa                 ///< smooths the edges in the texture
};
inline constexpr std::size_t kGeometryProgramCount = 7;

/// The program that the parameters ask for. An effect without a program throws std::out_of_range.
GeometryProgram ProgramOf(const GeometryDrawParams& params);

/// Where a rectangle stands: its centre, its full width and height, and its turn. World space.
struct DrawRectangle {
    Utils::Vector3 position = Utils::Vector3::Zero();
    Utils::Vector2 size{1.0f, 1.0f};
    Utils::Quaternion rotation = Utils::Quaternion::Identity();
};

/// How one rectangle is drawn.
struct RectDrawParams {
    std::uint32_t mode = 0; ///< 0: both halves; 1: the half of `eye` alone; others: once, to the whole viewport
    std::uint32_t eye = 0;  ///< 0 left, 1 right; with others mode 1 draws nothing
    bool blend = false;
    bool dim = false; ///< third parameter of the shader 0.1 instead of 1.0
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

RectProgram ProgramOf(const RectDrawParams& params); ///< throws like the geometry's

} // namespace Rendering
