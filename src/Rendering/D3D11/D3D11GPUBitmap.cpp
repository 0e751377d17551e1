#include "Rendering/D3D11/D3D11GPUBitmap.h"

namespace Rendering::D3D11 {

namespace {

/// Views of a typeless texture need a typed format; others use the texture's format.
DXGI_FORMAT ViewFormat(DXGI_FORMAT format) {
    switch (format) {
    case DXGI_FORMAT_R8G8B8A8_TYPELESS:
        return DXGI_FORMAT_R8G8B8A8_UNORM;
    case DXGI_FORMAT_R16G16B16A16_TYPELESS:
        return DXGI_FORMAT_R16G16B16A16_UNORM;
    default:
        return DXGI_FORMAT_UNKNOWN;
    }
}

} // namespace

D3D11GPUBitmap::D3D11GPUBitmap(ID3D11Device* device, ID3D11Texture2D* texture) : device(device), texture(texture) {
    D3D11_TEXTURE2D_DESC description;
    texture->GetDesc(&description);
    width = description.Width;
    height = description.Height;
    multisampled = description.SampleDesc.Count > 1;
}

D3D11GPUBitmap::D3D11GPUBitmap(ID3D11Device* device, ID3D11Texture2D* texture, bool shaderViewOnly)
    : D3D11GPUBitmap(device, texture) {
    Check(MakeViews(shaderViewOnly), HERE);
}

std::unique_ptr<D3D11GPUBitmap> D3D11GPUBitmap::MakeOrNull(ID3D11Device* device, ID3D11Texture2D* texture) {
    std::unique_ptr<D3D11GPUBitmap> bitmap(new D3D11GPUBitmap(device, texture));
    return SUCCEEDED(bitmap->MakeViews(false)) ? std::move(bitmap) : nullptr;
}

HRESULT D3D11GPUBitmap::MakeViews(bool shaderViewOnly) {
    D3D11_TEXTURE2D_DESC description;
    texture->GetDesc(&description);
    D3D11_SHADER_RESOURCE_VIEW_DESC shaderDescription{};
    D3D11_RENDER_TARGET_VIEW_DESC targetDescription{};
    const DXGI_FORMAT format = ViewFormat(description.Format);
    shaderDescription.Format = targetDescription.Format = format;
    shaderDescription.ViewDimension = multisampled ? D3D11_SRV_DIMENSION_TEXTURE2DMS : D3D11_SRV_DIMENSION_TEXTURE2D;
    targetDescription.ViewDimension = multisampled ? D3D11_RTV_DIMENSION_TEXTURE2DMS : D3D11_RTV_DIMENSION_TEXTURE2D;
    if (!multisampled)
        shaderDescription.Texture2D.MipLevels = static_cast<UINT>(-1); // all
    const bool typeless = format != DXGI_FORMAT_UNKNOWN;
    const HRESULT result =
        device->CreateShaderResourceView(texture.Get(), typeless ? &shaderDescription : nullptr, &shaderView);
    if (FAILED(result) || shaderViewOnly)
        return result;
    return device->CreateRenderTargetView(texture.Get(), typeless ? &targetDescription : nullptr, &targetView);
}

} // namespace Rendering::D3D11
