#pragma once

#include "Rendering/D3D11/DrawStates.h"
#include "Rendering/D3D11/Geometry.h"
#include "Rendering/D3D11/Shader.h"
#include "Rendering/D3D11/ShaderConstants.h"

#include <array>
#include <memory>

namespace Rendering::D3D11 {

/// The shaders for geometry with their constants and states.
class D3D11GeometryShader : public Utils::NonAssignable {
public:
    explicit D3D11GeometryShader(ID3D11Device* device);

    /// One draw to the current target and viewport. Too many matrices are a fatal error; an unknown effect throws
    /// std::out_of_range.
    void Draw(const Utils::Matrix4& world, const Utils::Matrix4& view, const Utils::Matrix4& projection,
              const Geometry& geometry, ID3D11ShaderResourceView* bitmapView,
              std::span<ID3D11ShaderResourceView* const> furtherViews, const GeometryDrawParams& params);

private:
    ID3D11Device* device;
    std::array<Shader, kGeometryProgramCount> programs;
    ComPtr<ID3D11Buffer> constantBuffer, pictureBuffer;
    DrawStates states;
    ComPtr<ID3D11SamplerState> sampler;
    std::unique_ptr<GeometryConstants> constants; ///< of the current draw; a member to reuse its memory
};

} // namespace Rendering::D3D11
