#pragma once

#include "Rendering/D3D11/D3D11FrameTarget.h"
#include "Rendering/GeometryLoader.h"
#include "Support/TemporaryFolder.h"

#include <optional>

namespace Conformance {

/// Direct3D 11 without a window, with the shaders of the source tree.
class D3D11Device {
public:
    /// A DDS image is drawn into a target of one level.
    static constexpr bool kDropsMipLevelsOfFiles = true;

    D3D11Device() {
        BindShaders();
        Rendering::D3D11::Check(D3D11CreateDevice(nullptr, D3D_DRIVER_TYPE_HARDWARE, nullptr, 0, nullptr, 0,
                                                  D3D11_SDK_VERSION, &device, nullptr, &deviceContext),
                                HERE);
        context.emplace(device.Get(), camera);
        frame.emplace(*context, device.Get());
    }

    Rendering::D3D11::D3D11Context& Context() { return *context; }
    ID3D11Device* Device() const { return device.Get(); }
    ID3D11DeviceContext* DeviceContext() const { return deviceContext.Get(); }
    void MakeCurrent() {}

    void Begin(Rendering::Size size) {
        frame->Resize(size);
        frame->Begin(Utils::Vector4::Zero());
    }
    Rendering::MemBitmap ReadFrame() { return frame->Read(); }

    Rendering::MemBitmap Read(Rendering::GPUBitmap& bitmap) {
        auto& own = dynamic_cast<Rendering::D3D11::D3D11GPUBitmap&>(bitmap);
        return Rendering::D3D11::ReadTexture(device.Get(), own.Texture());
    }

private:
    static void BindShaders() {
        static const std::string bound = [] {
            const Support::WorkingDirectory data(VORELLE_SOURCE_DIR "/data");
            return Rendering::ResolveDataPath("QVRA");
        }();
    }
    Rendering::D3D11::ComPtr<ID3D11Device> device;
    Rendering::D3D11::ComPtr<ID3D11DeviceContext> deviceContext;
    Rendering::Camera camera;
    std::optional<Rendering::D3D11::D3D11Context> context;
    std::optional<Rendering::D3D11::D3D11FrameTarget> frame;
};

} // namespace Conformance
