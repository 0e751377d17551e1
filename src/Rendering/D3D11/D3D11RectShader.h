#pragma once

#include "Rendering/D3D11/DrawStates.h"
#include "Rendering/D3D11/Quad.h"
#include "Rendering/D3D11/Shader.h"
#include "Rendering/D3D11/ShaderConstants.h"

#include <array>

namespace Rendering::D3D11 {

/// The shaders for rectangles with their constants and states.
class D3D11RectShader : public Utils::NonAssignable {
public:
    explicit D3D11RectShader(ID3D11Device* device);

    /// Draws one rectangle from (-1, -1) to (1, 1) to the current target and viewport. An unknown effect throws
    /// std::out_of_range.
    void Draw(const Utils::Matrix4& world, const Utils::Matrix4& view, const Utils::Matrix4& projection,
              ID3D11ShaderResourceView* shaderView, const RectDrawParams& params) const;

private:
    ID3D11Device* device;
    std::array<Shader, kRectProgramCount> programs;
    ComPtr<ID3D11Buffer> constantBuffer, pictureBuffer;
    DrawStates states;
    ComPtr<ID3D11SamplerState> sampler;
    Quad quad;
};

} // namespace Rendering::D3D11
