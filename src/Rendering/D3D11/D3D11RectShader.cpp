#include "Rendering/D3D11/D3D11RectShader.h"

#include "Rendering/DeviceDraws.h"

namespace Rendering::D3D11 {

namespace {

constexpr const char* kPlainFile = "QVRA/Shaders/D3D11Rect.fx";
constexpr const char* kSobelFile = "QVRA/Shaders/D3D11RectSobel.fx";

RectConstants ConstantsOf(const RectDrawParams& params) {
    RectConstants constants;
    constants.parameters = RectScalars(params);
    constants.colour = params.colour;
    constants.textureRectangle = TextureRectangle(params);
    return constants;
}

} // namespace

// In the order of RectProgram.
D3D11RectShader::D3D11RectShader(ID3D11Device* device)
    : device(device), programs{Shader(device, kQuadLayout, kPlainFile, kPlainFile),
                               Shader(device, kQuadLayout, kSobelFile, kSobelFile)},
      constantBuffer(CreateConstantBuffer(device, sizeof(RectConstants))),
      pictureBuffer(CreateConstantBuffer(device, sizeof(PictureConstants))), states(device),
      sampler(CreateSampler(device, D3D11_FILTER_ANISOTROPIC, D3D11_TEXTURE_ADDRESS_CLAMP)), quad(device, 0.0f) {}

void D3D11RectShader::Draw(const Utils::Matrix4& world, const Utils::Matrix4& view, const Utils::Matrix4& projection,
                           ID3D11ShaderResourceView* shaderView, const RectDrawParams& params) const {
    const auto context = ImmediateContext(device);
    RectConstants constants = ConstantsOf(params);
    constants.world = world.transpose();
    constants.view = view.transpose();
    constants.projection = projection.transpose();
    Upload(context.Get(), constantBuffer.Get(), constants);
    Upload(context.Get(), pictureBuffer.Get(), PictureConstantsOf(shaderView));

    programs[static_cast<std::size_t>(ProgramOf(params))].Use(context.Get());
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
