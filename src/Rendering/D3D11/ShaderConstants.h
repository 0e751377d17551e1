#pragma once

#include "Rendering/D3D11/D3D11Call.h"
#include "Rendering/DrawParams.h"

#include <array>
#include <cstddef>

/// The constant buffers in the layout of the shaders in the data folder. Matrices are transposed, so that a shader's
/// mul(point, matrix) is the product with a row vector.
namespace Rendering::D3D11 {

struct GeometryConstants {
    Utils::Matrix4 world, view, projection;
    Utils::Vector4 firstColour, secondColour, thirdColour; ///< the fourth component is 1
    float opacity = 1.0f, shaderParam1 = 0.0f, shaderParam2 = 0.0f, shaderParam3 = 0.0f, shaderParam4 = 0.0f;
    std::array<float, 3> unused{};
    Utils::Vector4 fourthColour;
    std::array<Utils::Matrix4, kMatrixLimit> matrices;
};
static_assert(sizeof(GeometryConstants) == 6688 && offsetof(GeometryConstants, firstColour) == 192 &&
              offsetof(GeometryConstants, opacity) == 240 && offsetof(GeometryConstants, fourthColour) == 272 &&
              offsetof(GeometryConstants, matrices) == 288);

struct RectConstants {
    Utils::Matrix4 world, view, projection;
    Utils::Vector4 parameters, colour, textureRectangle;
};
static_assert(sizeof(RectConstants) == 240 && offsetof(RectConstants, parameters) == 192);

/// In a separate slot: the size of a texel of the first bitmap in texture coordinates, which not every compiler lets a
/// shader query.
struct PictureConstants {
    Utils::Vector2 texel{1.0f, 1.0f};
    std::array<float, 2> unused{};
};
static_assert(sizeof(PictureConstants) == 16);

PictureConstants PictureConstantsOf(ID3D11ShaderResourceView* view);

ComPtr<ID3D11Buffer> CreateConstantBuffer(ID3D11Device* device, std::size_t size);

template <typename Constants>
void Upload(ID3D11DeviceContext* context, ID3D11Buffer* buffer, const Constants& constants) {
    context->UpdateSubresource(buffer, 0, nullptr, &constants, 0, 0);
}

} // namespace Rendering::D3D11
