#include "Rendering/D3D11/DX11RenderToTextureLock.h"

#include "Rendering/D3D11/DrawScopes.h"

namespace Rendering::D3D11 {

DX11RenderToTextureLock::DX11RenderToTextureLock(ID3D11Device* device, const D3D11GPUBitmap& bitmap, bool keepDepth)
    : device(device) {
    const auto context = ImmediateContext(device);
    context->OMGetRenderTargets(1, &target, &depth);
    viewport = FirstViewport(context.Get());
    ID3D11RenderTargetView* view = bitmap.TargetView();
    context->OMSetRenderTargets(1, &view, keepDepth ? depth.Get() : nullptr);
    D3D11_VIEWPORT whole = viewport;
    whole.TopLeftX = whole.TopLeftY = 0.0f;
    whole.Width = static_cast<float>(bitmap.Size().width);
    whole.Height = static_cast<float>(bitmap.Size().height);
    context->RSSetViewports(1, &whole);
}

DX11RenderToTextureLock::~DX11RenderToTextureLock() {
    Restore();
}

void DX11RenderToTextureLock::Restore() {
    if (restored)
        return;
    const auto context = ImmediateContext(device);
    context->OMSetRenderTargets(1, target.GetAddressOf(), depth.Get());
    target.Reset();
    depth.Reset();
    context->RSSetViewports(1, &viewport);
    restored = true;
}

} // namespace Rendering::D3D11
