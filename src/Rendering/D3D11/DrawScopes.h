#pragma once

#include "Rendering/D3D11/D3D11Call.h"
#include "Rendering/DeviceDraws.h"
#include "Utils/NonAssignable.h"

namespace Rendering::D3D11 {

/// The first viewport; if none is set, one of size 0 with the whole depth range.
inline D3D11_VIEWPORT FirstViewport(ID3D11DeviceContext* context) {
    UINT count = 1;
    D3D11_VIEWPORT viewport{};
    viewport.MaxDepth = 1.0f;
    context->RSGetViewports(&count, &viewport);
    return viewport;
}

/// Restores the first viewport at the end of the scope, also if a draw fails.
class ViewportScope : public Utils::NonAssignable {
public:
    explicit ViewportScope(ID3D11DeviceContext* context) : before(FirstViewport(context)), context(context) {}
    ~ViewportScope() { context->RSSetViewports(1, &before); }

    void Set(ViewportPart part) const {
        D3D11_VIEWPORT viewport = before;
        if (part != ViewportPart::Whole)
            viewport.Width *= 0.5f;
        if (part == ViewportPart::RightHalf)
            viewport.TopLeftX += viewport.Width;
        context->RSSetViewports(1, &viewport);
    }

private:
    const D3D11_VIEWPORT before;
    ID3D11DeviceContext* context;
};

/// Restores the render target and the depth target at the end of the scope.
class TargetScope : public Utils::NonAssignable {
public:
    explicit TargetScope(ID3D11DeviceContext* context) : context(context) {
        context->OMGetRenderTargets(1, &target, &depth);
    }
    ~TargetScope() { context->OMSetRenderTargets(1, target.GetAddressOf(), depth.Get()); }

private:
    ID3D11DeviceContext* context;
    ComPtr<ID3D11RenderTargetView> target;
    ComPtr<ID3D11DepthStencilView> depth;
};

} // namespace Rendering::D3D11
