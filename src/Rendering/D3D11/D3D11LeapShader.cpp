#include "Rendering/D3D11/D3D11LeapShader.h"

namespace Rendering::D3D11 {

namespace {

constexpr const char* kFile = "QVRA/Shaders/D3D11LeapTransform.fx";
constexpr float kQuadDepth = 0.5f;

} // namespace

D3D11LeapShader::D3D11LeapShader(ID3D11Device* device)
    : device(device), shader(device, kQuadLayout, kFile, kFile), states(device),
      sampler(CreateSampler(device, D3D11_FILTER_MIN_MAG_MIP_LINEAR, D3D11_TEXTURE_ADDRESS_CLAMP)),
      quad(device, kQuadDepth) {}

void D3D11LeapShader::Draw(ID3D11ShaderResourceView* imageView, ID3D11ShaderResourceView* distortionView) const {
    const auto context = ImmediateContext(device);
    shader.Use(context.Get());
    ID3D11ShaderResourceView* const views[] = {imageView, distortionView};
    context->PSSetShaderResources(0, 2, views);
    const RasterizerScope rasterizer(context.Get());
    states.Set(context.Get(), false, false, false);
    context->PSSetSamplers(0, 1, sampler.GetAddressOf());
    quad.Draw(context.Get());
}

} // namespace Rendering::D3D11
