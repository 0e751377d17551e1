#include "Rendering/D3D11/ShaderConstants.h"

namespace Rendering::D3D11 {

PictureConstants PictureConstantsOf(ID3D11ShaderResourceView* view) {
    ComPtr<ID3D11Resource> resource;
    view->GetResource(&resource);
    ComPtr<ID3D11Texture2D> texture;
    Check(resource.As(&texture), HERE);
    D3D11_TEXTURE2D_DESC description;
    texture->GetDesc(&description);
    return {{1.0f / static_cast<float>(description.Width), 1.0f / static_cast<float>(description.Height)}, {}};
}

ComPtr<ID3D11Buffer> CreateConstantBuffer(ID3D11Device* device, std::size_t size) {
    const D3D11_BUFFER_DESC description{
        static_cast<UINT>(size), D3D11_USAGE_DEFAULT, D3D11_BIND_CONSTANT_BUFFER, 0, 0, 0};
    ComPtr<ID3D11Buffer> buffer;
    Check(device->CreateBuffer(&description, nullptr, &buffer), HERE);
    return buffer;
}

} // namespace Rendering::D3D11
