#pragma once

#include "Rendering/D3D11/D3D11GPUBitmap.h"

namespace Rendering::D3D11 {

/// Directs draws to a bitmap until restored. The bitmap must outlive it.
class DX11RenderToTextureLock : public RenderToTextureLock {
public:
    /// With `keepDepth` the current depth target stays in use.
    DX11RenderToTextureLock(ID3D11Device* device, const D3D11GPUBitmap& bitmap, bool keepDepth);
    ~DX11RenderToTextureLock() override;

    void Restore() override;

private:
    ID3D11Device* device;
    ComPtr<ID3D11RenderTargetView> target; ///< the previous one, like the next two
    ComPtr<ID3D11DepthStencilView> depth;
    D3D11_VIEWPORT viewport{};
};

} // namespace Rendering::D3D11
