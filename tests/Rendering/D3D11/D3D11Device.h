#pragma once

#include "Rendering/D3D11/D3D11Context.h"
#include "Rendering/D3D11/DX11Texture.h"
#include "Rendering/GeometryLoader.h"
#include "Support/TemporaryFolder.h"

#include <cstdio>
#include <cstring>
#include <optional>

namespace Conformance {

/// Direct3D 11 without a window, with the programs of the source tree.
class D3D11Device {
public:
    /// A DDS picture is drawn into a target of one level.
    static constexpr bool kDropsMipLevelsOfFiles = true;

    D3D11Device() {
        BindShaders();
        Rendering::D3D11::Check(D3D11CreateDevice(nullptr, D3D_DRIVER_TYPE_HARDWARE, nullptr, 0, nullptr, 0,
                                                  D3D11_SDK_VERSION, &device, nullptr, &deviceContext),
                                HERE);
        context.emplace(device.Get(), camera);
    }

    Rendering::D3D11::D3D11Context& Context() { return *context; }
    ID3D11Device* Device() const { return device.Get(); }
    ID3D11DeviceContext* DeviceContext() const { return deviceContext.Get(); }
    void MakeCurrent() {}

    void Begin(Rendering::Size size) {
        if (!frame || frame->Size() != size)
            Resize(size);
        ID3D11RenderTargetView* target = Own(*frame).TargetView();
        deviceContext->OMSetRenderTargets(1, &target, depth->DepthView());
        const D3D11_VIEWPORT whole{0, 0, static_cast<float>(size.width), static_cast<float>(size.height), 0, 1};
        deviceContext->RSSetViewports(1, &whole);
        const float black[4] = {};
        deviceContext->ClearRenderTargetView(target, black);
        deviceContext->ClearDepthStencilView(depth->DepthView(), D3D11_CLEAR_DEPTH, 1.0f, 0);
    }
    Rendering::MemBitmap ReadFrame() { return Read(*frame); }

    Rendering::MemBitmap Read(Rendering::GPUBitmap& bitmap) {
        D3D11_TEXTURE2D_DESC description;
        Own(bitmap).Texture()->GetDesc(&description);
        description.MipLevels = 1;
        description.Usage = D3D11_USAGE_STAGING;
        description.CPUAccessFlags = D3D11_CPU_ACCESS_READ;
        description.BindFlags = description.MiscFlags = 0;
        Rendering::D3D11::ComPtr<ID3D11Texture2D> staging;
        Rendering::D3D11::Check(device->CreateTexture2D(&description, nullptr, &staging), HERE);
        deviceContext->CopySubresourceRegion(staging.Get(), 0, 0, 0, 0, Own(bitmap).Texture(), 0, nullptr);
        D3D11_MAPPED_SUBRESOURCE mapped;
        Rendering::D3D11::Check(deviceContext->Map(staging.Get(), 0, D3D11_MAP_READ, 0, &mapped), HERE);
        Rendering::MemBitmap pixels(description.Width, description.Height);
        for (std::size_t y = 0; y < description.Height; ++y)
            std::memcpy(pixels.Pixels().data() + y * description.Width,
                        static_cast<const char*>(mapped.pData) + y * mapped.RowPitch, 4 * description.Width);
        deviceContext->Unmap(staging.Get(), 0);
        return pixels;
    }

private:
    static Rendering::D3D11::D3D11GPUBitmap& Own(Rendering::GPUBitmap& bitmap) {
        return dynamic_cast<Rendering::D3D11::D3D11GPUBitmap&>(bitmap);
    }
    static void BindShaders() {
        static const std::string bound = [] {
            // The system's box would wait for a person.
            Utils::SetFatalErrorDialog([](const std::string& caption, const std::string& text) {
                std::fprintf(stderr, "%s: %s\n", caption.c_str(), text.c_str());
            });
            const Support::WorkingDirectory data(VORELLE_SOURCE_DIR "/data");
            return Rendering::ResolveDataPath("QVRA");
        }();
    }
    void Resize(Rendering::Size size) {
        frame = context->CreateRenderTarget(size, 1, 0);
        D3D11_TEXTURE2D_DESC description{};
        description.Width = size.width;
        description.Height = size.height;
        description.MipLevels = description.ArraySize = description.SampleDesc.Count = 1;
        description.Format = DXGI_FORMAT_D32_FLOAT;
        description.BindFlags = D3D11_BIND_DEPTH_STENCIL;
        depth.emplace(device.Get(), description);
    }

    Rendering::D3D11::ComPtr<ID3D11Device> device;
    Rendering::D3D11::ComPtr<ID3D11DeviceContext> deviceContext;
    Rendering::Camera camera;
    std::optional<Rendering::D3D11::D3D11Context> context;
    std::unique_ptr<Rendering::GPUBitmap> frame;
    std::optional<Rendering::D3D11::DX11Texture> depth;
};

} // namespace Conformance
