#include "Rendering/D3D11/DrawStates.h"

namespace Rendering::D3D11 {

namespace {

constexpr UINT kAnisotropy = 16;

ComPtr<ID3D11BlendState> CreateBlendState(ID3D11Device* device, bool enabled) {
    D3D11_BLEND_DESC description{};
    for (D3D11_RENDER_TARGET_BLEND_DESC& target : description.RenderTarget)
        target = {enabled,         D3D11_BLEND_SRC_ALPHA, D3D11_BLEND_INV_SRC_ALPHA, D3D11_BLEND_OP_ADD,
                  D3D11_BLEND_ONE, D3D11_BLEND_ZERO,      D3D11_BLEND_OP_ADD,        D3D11_COLOR_WRITE_ENABLE_ALL};
    ComPtr<ID3D11BlendState> state;
    Check(device->CreateBlendState(&description, &state), HERE);
    return state;
}

ComPtr<ID3D11DepthStencilState> CreateDepthState(ID3D11Device* device, bool test, bool write) {
    D3D11_DEPTH_STENCIL_DESC description{};
    description.DepthEnable = test;
    description.DepthWriteMask = write ? D3D11_DEPTH_WRITE_MASK_ALL : D3D11_DEPTH_WRITE_MASK_ZERO;
    description.DepthFunc = D3D11_COMPARISON_LESS_EQUAL;
    description.FrontFace = description.BackFace = {D3D11_STENCIL_OP_KEEP, D3D11_STENCIL_OP_KEEP, D3D11_STENCIL_OP_KEEP,
                                                    D3D11_COMPARISON_ALWAYS};
    ComPtr<ID3D11DepthStencilState> state;
    Check(device->CreateDepthStencilState(&description, &state), HERE);
    return state;
}

ComPtr<ID3D11RasterizerState> CreateRasterizer(ID3D11Device* device) {
    D3D11_RASTERIZER_DESC description{};
    description.FillMode = D3D11_FILL_SOLID;
    description.CullMode = D3D11_CULL_NONE;
    description.FrontCounterClockwise = TRUE;
    description.DepthClipEnable = TRUE;
    description.MultisampleEnable = TRUE;
    ComPtr<ID3D11RasterizerState> state;
    Check(device->CreateRasterizerState(&description, &state), HERE);
    return state;
}

} // namespace

DrawStates::DrawStates(ID3D11Device* device)
    : blendOn(CreateBlendState(device, true)), blendOff(CreateBlendState(device, false)),
      depthFull(CreateDepthState(device, true, true)), depthTestOnly(CreateDepthState(device, true, false)),
      depthNone(CreateDepthState(device, false, false)), rasterizer(CreateRasterizer(device)) {}

void DrawStates::Set(ID3D11DeviceContext* context, bool blend, bool depthTest, bool depthWrite) const {
    context->OMSetBlendState((blend ? blendOn : blendOff).Get(), nullptr, 0xFFFFFFFF);
    context->RSSetState(rasterizer.Get());
    const auto& tested = depthWrite ? depthFull : depthTestOnly;
    context->OMSetDepthStencilState((depthTest ? tested : depthNone).Get(), 0);
}

ComPtr<ID3D11SamplerState> CreateSampler(ID3D11Device* device, D3D11_FILTER filter, D3D11_TEXTURE_ADDRESS_MODE wrap) {
    D3D11_SAMPLER_DESC description{};
    description.Filter = filter;
    description.AddressU = description.AddressV = wrap;
    description.AddressW = D3D11_TEXTURE_ADDRESS_CLAMP;
    description.MaxAnisotropy = kAnisotropy;
    description.ComparisonFunc = D3D11_COMPARISON_NEVER;
    description.MaxLOD = D3D11_FLOAT32_MAX;
    ComPtr<ID3D11SamplerState> sampler;
    Check(device->CreateSamplerState(&description, &sampler), HERE);
    return sampler;
}

} // namespace Rendering::D3D11
