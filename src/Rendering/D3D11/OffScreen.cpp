#include "Rendering/OffScreen.h"

#include "Rendering/D3D11/D3D11FrameTarget.h"

#include <stdexcept>

namespace Rendering {

namespace {

/// Machines without a graphics card use the software device.
D3D11::ComPtr<ID3D11Device> MakeDevice() {
    D3D11::ComPtr<ID3D11Device> device;
    for (const D3D_DRIVER_TYPE driver : {D3D_DRIVER_TYPE_HARDWARE, D3D_DRIVER_TYPE_WARP})
        if (SUCCEEDED(D3D11CreateDevice(nullptr, driver, nullptr, 0, nullptr, 0, D3D11_SDK_VERSION, &device, nullptr,
                                        nullptr)))
            return device;
    throw std::runtime_error("the system offers no Direct3D 11 device");
}

} // namespace

struct OffScreen::Device {
    const D3D11::ComPtr<ID3D11Device> direct3D = MakeDevice();
    const Camera camera{}; // only supplies the eye matrices
    D3D11::D3D11Context context{direct3D.Get(), camera};
    D3D11::D3D11FrameTarget target{context, direct3D.Get(), kOffScreenSamples};
};

OffScreen::OffScreen(Size size) : device(std::make_unique<Device>()) {
    device->target.Resize(size);
}

OffScreen::~OffScreen() = default;

MemBitmap OffScreen::Draw(const Utils::Vector4& background, const std::function<void(Context&)>& draw) {
    device->target.Begin(background);
    draw(device->context);
    return device->target.Read();
}

} // namespace Rendering
