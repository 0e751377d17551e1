#include "Rendering/D3D11/Blitter.h"

#include "Rendering/D3D11/DrawScopes.h"

namespace Rendering::D3D11 {

Blitter::Blitter(ID3D11Device* device) : device(device), rectShader(device) {}

void Blitter::Blit(ID3D11ShaderResourceView* source, ID3D11RenderTargetView* target, const Utils::Vector2& sourceOrigin,
                   const Utils::Vector2& sourceSize, Size targetSize) const {
    const auto context = ImmediateContext(device);
    const TargetScope targets(context.Get());
    const ViewportScope viewport(context.Get());
    context->OMSetRenderTargets(1, &target, nullptr);
    const D3D11_VIEWPORT whole{0.0f, 0.0f, static_cast<float>(targetSize.width), static_cast<float>(targetSize.height),
                               0.0f, 1.0f};
    context->RSSetViewports(1, &whole);
    RectDrawParams params;
    params.depthTest = params.depthWrite = false;
    params.textureOrigin = sourceOrigin;
    params.textureSize = sourceSize;
    const Utils::Matrix4 same = Utils::Matrix4::Identity();
    rectShader.Draw(same, same, same, source, params);
}

} // namespace Rendering::D3D11
