#include "Rendering/D3D11/DX11Texture.h"

#include "Logging/Logger.h"

namespace Rendering::D3D11 {

namespace {

constexpr UINT kShared = D3D11_RESOURCE_MISC_SHARED_KEYEDMUTEX | D3D11_RESOURCE_MISC_SHARED;

void MakePositive(UINT& side, const char* message) {
    if (side != 0)
        return;
    Logging::Logger::Get().Log(HERE, message);
    side = 1;
}

} // namespace

void LogTexture(const char* file, std::int32_t line, const D3D11_TEXTURE2D_DESC& description) {
    Logging::Logger::Get().Log(file, line,
                               Logging::TextureDescription{description.Width, description.Height,
                                                           static_cast<std::uint32_t>(description.Format),
                                                           description.BindFlags, description.CPUAccessFlags,
                                                           description.MiscFlags,
                                                           static_cast<std::uint32_t>(description.Usage)});
}

DX11Texture::DX11Texture(ID3D11Device* device, D3D11_TEXTURE2D_DESC description) {
    MakePositive(description.Width, "desc.Width == 0 -> 1");
    MakePositive(description.Height, "desc.Height == 0 -> 1");
    LogTexture(HERE, description);
    Check(device->CreateTexture2D(&description, nullptr, &texture), HERE);
    width = description.Width;
    height = description.Height;
    if (description.BindFlags & D3D11_BIND_SHADER_RESOURCE)
        Check(device->CreateShaderResourceView(texture.Get(), nullptr, &shaderView), HERE);
    if (description.BindFlags & D3D11_BIND_RENDER_TARGET)
        Check(device->CreateRenderTargetView(texture.Get(), nullptr, &targetView), HERE);
    if (description.BindFlags & D3D11_BIND_DEPTH_STENCIL) {
        D3D11_DEPTH_STENCIL_VIEW_DESC view{};
        view.Format = description.Format;
        view.ViewDimension = D3D11_DSV_DIMENSION_TEXTURE2D;
        Check(device->CreateDepthStencilView(texture.Get(), &view, &depthView), HERE);
    }
    if (description.MiscFlags & kShared) {
        ComPtr<IDXGIResource> resource;
        Check(texture.As(&resource), HERE);
        Check(resource->GetSharedHandle(&sharedHandle), HERE);
    }
}

} // namespace Rendering::D3D11
