#pragma once

#include "Rendering/Context.h"
#include "Rendering/D3D11/D3D11Call.h"

namespace Rendering::D3D11 {

/// A texture with its views. The first row is the image's top row. A texture keeps its device alive, so that a later
/// device never has the address of the device of an existing bitmap.
class D3D11GPUBitmap : public GPUBitmap {
public:
    D3D11GPUBitmap(ID3D11Device* device, ID3D11Texture2D* texture, bool shaderViewOnly);
    /// With both views; null if one of them fails.
    static std::unique_ptr<D3D11GPUBitmap> MakeOrNull(ID3D11Device* device, ID3D11Texture2D* texture);

    Rendering::Size Size() const override { return {width, height}; }
    ID3D11Device* Device() const { return device; }
    ID3D11Texture2D* Texture() const { return texture.Get(); }
    ID3D11ShaderResourceView* ShaderView() const { return shaderView.Get(); }
    ID3D11RenderTargetView* TargetView() const { return targetView.Get(); } ///< null with a shader view only
    bool IsMultisampled() const { return multisampled; }

private:
    D3D11GPUBitmap(ID3D11Device* device, ID3D11Texture2D* texture);
    HRESULT MakeViews(bool shaderViewOnly);

    ID3D11Device* device;
    ComPtr<ID3D11Texture2D> texture;
    ComPtr<ID3D11ShaderResourceView> shaderView;
    ComPtr<ID3D11RenderTargetView> targetView;
    std::uint32_t width = 0, height = 0; ///< pixels
    bool multisampled = false;
};

} // namespace Rendering::D3D11
