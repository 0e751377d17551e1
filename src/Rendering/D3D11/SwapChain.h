#pragma once

#include "Rendering/D3D11/D3D11Context.h"
#include "Rendering/D3D11/DX11Texture.h"

#include <dxgi.h>
#include <optional>

namespace Rendering::D3D11 {

/// A window's device, with the buffers that the window shows and a depth buffer of 32-bit floats. Objects of its
/// context must be destroyed before it. A failing call is a fatal error.
class SwapChain : public Utils::NonAssignable {
public:
    /// Window and camera must outlive it.
    SwapChain(HWND window, Size size, const Camera& camera);

    D3D11Context& Context() { return *context; }
    /// Remakes the targets.
    void Resize(Size size);
    /// Directs draws to the whole back buffer and clears it to the colour and the farthest depth.
    void Begin(const Utils::Vector4& colour);
    /// Shows the frame and waits for the display. False if the window is hidden, so that nothing waited.
    bool Present();

private:
    void CreateBuffers(HWND window, Size size);
    void CreateTargets(std::int32_t bufferLine, std::int32_t viewLine);
    void CreateDepthState();

    ComPtr<IDXGISwapChain> swapChain;
    ComPtr<ID3D11Device> device;
    ComPtr<ID3D11DeviceContext> deviceContext;
    ComPtr<ID3D11Texture2D> backBuffer;
    ComPtr<ID3D11RenderTargetView> renderTargetView;
    std::optional<DX11Texture> depthBuffer;
    ComPtr<ID3D11DepthStencilState> depthStencilState;
    std::optional<D3D11Context> context;
};

} // namespace Rendering::D3D11
