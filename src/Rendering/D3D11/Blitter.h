#pragma once

#include "Rendering/Context.h"
#include "Rendering/D3D11/D3D11RectShader.h"

namespace Rendering::D3D11 {

/// Draws a region of a texture over a whole target.
class Blitter : public Utils::NonAssignable {
public:
    explicit Blitter(ID3D11Device* device);

    /// Origin and size in texture coordinates from the image's top left; a height of -1 from an origin of 1 flips it
    /// vertically.
    void Blit(ID3D11ShaderResourceView* source, ID3D11RenderTargetView* target, const Utils::Vector2& sourceOrigin,
              const Utils::Vector2& sourceSize, Size targetSize) const;

private:
    ID3D11Device* device;
    D3D11RectShader rectShader;
};

} // namespace Rendering::D3D11
