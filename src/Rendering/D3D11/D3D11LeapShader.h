#pragma once

#include "Rendering/D3D11/DrawStates.h"
#include "Rendering/D3D11/Quad.h"
#include "Rendering/D3D11/Shader.h"

namespace Rendering::D3D11 {

/// Undistorts a camera's image with its distortion map.
class D3D11LeapShader : public Utils::NonAssignable {
public:
    explicit D3D11LeapShader(ID3D11Device* device);

    void Draw(ID3D11ShaderResourceView* imageView, ID3D11ShaderResourceView* distortionView) const;

private:
    ID3D11Device* device;
    Shader shader;
    DrawStates states;
    ComPtr<ID3D11SamplerState> sampler;
    Quad quad;
};

} // namespace Rendering::D3D11
