#pragma once

#include "Rendering/D3D11/D3D11Call.h"
#include "Utils/NonAssignable.h"

namespace Rendering::D3D11 {

/// The fixed states of a shader class, created once.
class DrawStates : public Utils::NonAssignable {
public:
    explicit DrawStates(ID3D11Device* device);

    void Set(ID3D11DeviceContext* context, bool blend, bool depthTest, bool depthWrite) const;

private:
    ComPtr<ID3D11BlendState> blendOn, blendOff;
    ComPtr<ID3D11DepthStencilState> depthFull, depthTestOnly, depthNone;
    ComPtr<ID3D11RasterizerState> rasterizer;
};

/// Restores the rasterizer state at the end of the scope.
class RasterizerScope : public Utils::NonAssignable {
public:
    explicit RasterizerScope(ID3D11DeviceContext* context) : context(context) { context->RSGetState(&before); }
    ~RasterizerScope() { context->RSSetState(before.Get()); }

private:
    ID3D11DeviceContext* context;
    ComPtr<ID3D11RasterizerState> before;
};

/// All mip levels; w is clamped. `wrap` applies to u and v.
ComPtr<ID3D11SamplerState> CreateSampler(ID3D11Device* device, D3D11_FILTER filter, D3D11_TEXTURE_ADDRESS_MODE wrap);

} // namespace Rendering::D3D11
