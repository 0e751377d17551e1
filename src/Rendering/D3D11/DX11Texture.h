#pragma once

#include "Rendering/D3D11/D3D11Call.h"
#include "Utils/NonAssignable.h"

namespace Rendering::D3D11 {

void LogTexture(const char* file, std::int32_t line, const D3D11_TEXTURE2D_DESC& description);

/// A texture with the views required by its bind flags. A side of 0 pixels becomes 1.
class DX11Texture : public Utils::NonAssignable {
public:
    DX11Texture(ID3D11Device* device, D3D11_TEXTURE2D_DESC description);

    HANDLE SharedHandle() const { return sharedHandle; } ///< null for a texture that is not shared
    ID3D11Texture2D* Texture() const { return texture.Get(); }
    ID3D11RenderTargetView* TargetView() const { return targetView.Get(); }
    ID3D11ShaderResourceView* ShaderView() const { return shaderView.Get(); }
    ID3D11DepthStencilView* DepthView() const { return depthView.Get(); }
    UINT Width() const { return width; }
    UINT Height() const { return height; }

private:
    HANDLE sharedHandle = nullptr;
    ComPtr<ID3D11Texture2D> texture;
    ComPtr<ID3D11RenderTargetView> targetView;
    ComPtr<ID3D11ShaderResourceView> shaderView;
    ComPtr<ID3D11DepthStencilView> depthView;
    UINT width = 0, height = 0;
};

} // namespace Rendering::D3D11
