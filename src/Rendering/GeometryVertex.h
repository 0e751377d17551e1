#pragma once

#include "Utils/LinearAlgebra.h"

#include <array>
#include <cstdint>

namespace Rendering {

/// The only vertex format, 60 bytes in the devices' input layout. Three per triangle.
struct GeometryVertex {
    Utils::Vector3 position = Utils::Vector3::Zero();
    Utils::Vector3 normal = Utils::Vector3::Zero();
    Utils::Vector2 texture = Utils::Vector2::Zero();
    Utils::Vector2 secondTexture = Utils::Vector2::Zero();
    std::array<std::uint8_t, 4> blendIndices = {0, 0, 0, 0};
    std::array<float, 4> blendWeights = {1.0f, 0.0f, 0.0f, 0.0f};
};
static_assert(sizeof(GeometryVertex) == 60);

} // namespace Rendering
