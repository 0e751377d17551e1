#pragma once

#include "Rendering/D3D11/D3D11Context.h"

#include <memory>

namespace Rendering::D3D11 {

/// The pixels of a texture's first level, 32 bits per pixel, one sample. Waits for the device.
MemBitmap ReadTexture(ID3D11Device* device, ID3D11Texture2D* texture);

/// Render target of a frame without a window: colour and 32-bit float depth.
class D3D11FrameTarget : public Utils::NonAssignable {
public:
    /// `samples` above 1 enables antialiasing.
    D3D11FrameTarget(D3D11Context& context, ID3D11Device* device, std::uint32_t samples = 1);

    /// Recreates the target.
    void Resize(Size size);
    /// Makes the whole of this target current for draws; clears it to the colour and to the farthest depth.
    void Begin(const Utils::Vector4& colour);
    /// The image: red, green, blue, alpha, top row first. Waits for the device.
    MemBitmap Read();

private:
    D3D11Context& context;
    ID3D11Device* device;
    std::uint32_t samples;
    std::unique_ptr<D3D11GPUBitmap> colour;
    ComPtr<ID3D11DepthStencilView> depth;
};

} // namespace Rendering::D3D11
