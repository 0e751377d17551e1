#include "Batch/OffScreen.h"

#include "Annotator/Preview/CanvasControl.h"
#include "Rendering/D3D11/D3D11FrameTarget.h"

#include <stdexcept>

namespace Batch {

namespace {

/// Machines without a graphics card use the software device.
Rendering::D3D11::ComPtr<ID3D11Device> MakeDevice() {
    Rendering::D3D11::ComPtr<ID3D11Device> device;
    for (const D3D_DRIVER_TYPE driver : {D3D_DRIVER_TYPE_HARDWARE, D3D_DRIVER_TYPE_WARP})
        if (SUCCEEDED(D3D11CreateDevice(nullptr, driver, nullptr, 0, nullptr, 0, D3D11_SDK_VERSION, &device, nullptr,
                                        nullptr)))
            return device;
    throw std::runtime_error("the system offers no Direct3D 11 device");
}

} // namespace

Rendering::MemBitmap DrawOffScreen(Rendering::Size size, const std::function<void(Rendering::Context&)>& draw) {
    const auto device = MakeDevice();
    const Rendering::Camera camera; // only supplies the eye matrices
    Rendering::D3D11::D3D11Context context(device.Get(), camera);
    Rendering::D3D11::D3D11FrameTarget target(context, device.Get(), kSamples);
    target.Resize(size);
    target.Begin(Annotator::kCanvasColour);
    draw(context);
    return target.Read();
}

} // namespace Batch
