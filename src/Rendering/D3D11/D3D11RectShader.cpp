#include "Rendering/D3D11/D3D11RectShader.h"

#include <stdexcept>

namespace Rendering::D3D11 {

namespace {

constexpr const char* kPlainFile = "QVRA/Shaders/D3D11Rect.fx";
constexpr const char* kSobelFile = "QVRA/Shaders/D3D11RectSobel.fx";
constexpr float kDimmed = 0.1f;

RectConstants ConstantsOf(const RectDrawParams& params) {
    RectConstants constants;
    constants.parameters << params.param1, params.param3, params.dim ? kDimmed : 1.0f, params.param2;
    constants.colour = params.colour;
    const Utils::Vector2 &origin = params.textureOrigin, &size = params.textureSize;
    constants.textureRectangle << origin.x(), 1.0f - origin.y() - size.y(), size.x(), size.y();
    return constants;
}

} // namespace

D3D11RectShader::D3D11RectShader(ID3D11Device* device)
    : device(device), plain(device, kQuadLayout, kPlainFile, kPlainFile),
      constantBuffer(CreateConstantBuffer(device, sizeof(RectConstants))),
      pictureBuffer(CreateConstantBuffer(device, sizeof(PictureConstants))), states(device),
      sampler(CreateSampler(device, D3D11_FILTER_ANISOTROPIC, D3D11_TEXTURE_ADDRESS_CLAMP)), quad(device, 0.0f) {
    effects["sobel"] = std::make_unique<Shader>(device, kQuadLayout, kSobelFile, kSobelFile);
}

const Shader& D3D11RectShader::ProgramFor(const RectDrawParams& params) const {
    if (params.effect.empty())
        return plain;
    const auto found = effects.find(params.effect);
    if (found == effects.end())
        throw std::out_of_range("invalid unordered_map<K, T> key");
    return *found->second;
}

void D3D11RectShader::Draw(const Utils::Matrix4& world, const Utils::Matrix4& view, const Utils::Matrix4& projection,
                           ID3D11ShaderResourceView* shaderView, const RectDrawParams& params) const {
    const auto context = ImmediateContext(device);
    RectConstants constants = ConstantsOf(params);
    constants.world = world.transpose();
    constants.view = view.transpose();
    constants.projection = projection.transpose();
    Upload(context.Get(), constantBuffer.Get(), constants);
    Upload(context.Get(), pictureBuffer.Get(), PictureConstantsOf(shaderView));

    ProgramFor(params).Use(context.Get());
    ID3D11Buffer* const buffers[] = {constantBuffer.Get(), pictureBuffer.Get()};
    context->VSSetConstantBuffers(0, 2, buffers);
    context->PSSetConstantBuffers(0, 2, buffers);
    context->PSSetShaderResources(0, 1, &shaderView);
    const RasterizerScope rasterizer(context.Get());
    states.Set(context.Get(), params.blend, params.depthTest, params.depthWrite);
    context->PSSetSamplers(0, 1, sampler.GetAddressOf());
    quad.Draw(context.Get());
}

} // namespace Rendering::D3D11
