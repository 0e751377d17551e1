#include "Rendering/D3D11/D3D11FrameTarget.h"

#include <cstring>

namespace Rendering::D3D11 {

namespace {

std::unique_ptr<D3D11GPUBitmap> MakeColour(D3D11Context& context, Size size, std::uint32_t samples) {
    std::unique_ptr<GPUBitmap> target = context.CreateRenderTarget(size, samples, 0);
    return std::unique_ptr<D3D11GPUBitmap>(static_cast<D3D11GPUBitmap*>(target.release()));
}

} // namespace

MemBitmap ReadTexture(ID3D11Device* device, ID3D11Texture2D* texture) {
    D3D11_TEXTURE2D_DESC description;
    texture->GetDesc(&description);
    description.MipLevels = 1;
    description.Usage = D3D11_USAGE_STAGING;
    description.CPUAccessFlags = D3D11_CPU_ACCESS_READ;
    description.BindFlags = description.MiscFlags = 0;
    ComPtr<ID3D11Texture2D> staging;
    Check(device->CreateTexture2D(&description, nullptr, &staging), HERE);
    const auto context = ImmediateContext(device);
    context->CopySubresourceRegion(staging.Get(), 0, 0, 0, 0, texture, 0, nullptr);
    D3D11_MAPPED_SUBRESOURCE mapped;
    Check(context->Map(staging.Get(), 0, D3D11_MAP_READ, 0, &mapped), HERE);
    MemBitmap pixels(description.Width, description.Height);
    for (std::size_t y = 0; y < description.Height; ++y)
        std::memcpy(pixels.Pixels().data() + y * description.Width,
                    static_cast<const char*>(mapped.pData) + y * mapped.RowPitch, 4 * description.Width);
    context->Unmap(staging.Get(), 0);
    return pixels;
}

D3D11FrameTarget::D3D11FrameTarget(D3D11Context& owner, ID3D11Device* device, std::uint32_t samples)
    : context(owner), device(device), samples(samples) {}

void D3D11FrameTarget::Resize(Size size) {
    colour = MakeColour(context, size, samples);
    D3D11_TEXTURE2D_DESC description;
    colour->Texture()->GetDesc(&description);
    description.Format = DXGI_FORMAT_D32_FLOAT;
    description.BindFlags = D3D11_BIND_DEPTH_STENCIL;
    ComPtr<ID3D11Texture2D> texture;
    Check(device->CreateTexture2D(&description, nullptr, &texture), HERE);
    Check(device->CreateDepthStencilView(texture.Get(), nullptr, &depth), HERE);
}

void D3D11FrameTarget::Begin(const Utils::Vector4& background) {
    const auto deviceContext = ImmediateContext(device);
    ID3D11RenderTargetView* const target = colour->TargetView();
    deviceContext->OMSetRenderTargets(1, &target, depth.Get());
    const Rendering::Size size = colour->Size();
    const D3D11_VIEWPORT whole{0.0f, 0.0f, static_cast<float>(size.width), static_cast<float>(size.height), 0.0f, 1.0f};
    deviceContext->RSSetViewports(1, &whole);
    deviceContext->ClearRenderTargetView(target, background.data());
    deviceContext->ClearDepthStencilView(depth.Get(), D3D11_CLEAR_DEPTH, 1.0f, 0);
}

MemBitmap D3D11FrameTarget::Read() {
    if (!colour->IsMultisampled())
        return ReadTexture(device, colour->Texture());
    const auto resolved = MakeColour(context, colour->Size(), 1);
    context.CopyBitmap(*resolved, *colour);
    return ReadTexture(device, resolved->Texture());
}

} // namespace Rendering::D3D11
