#include "Rendering/D3D11/D3D11GeometryShader.h"

#include <algorithm>

namespace Rendering::D3D11 {

namespace {

constexpr D3D11_INPUT_ELEMENT_DESC kLayout[] = {
    {"POSITION", 0, DXGI_FORMAT_R32G32B32_FLOAT, 0, 0, D3D11_INPUT_PER_VERTEX_DATA, 0},
    {"NORMAL", 0, DXGI_FORMAT_R32G32B32_FLOAT, 0, 12, D3D11_INPUT_PER_VERTEX_DATA, 0},
    {"TEXCOORD", 0, DXGI_FORMAT_R32G32_FLOAT, 0, 24, D3D11_INPUT_PER_VERTEX_DATA, 0},
    {"TEXCOORD", 1, DXGI_FORMAT_R32G32_FLOAT, 0, 32, D3D11_INPUT_PER_VERTEX_DATA, 0},
    {"BLENDINDICES", 0, DXGI_FORMAT_R8G8B8A8_UINT, 0, 40, D3D11_INPUT_PER_VERTEX_DATA, 0},
    {"BLENDWEIGHT", 0, DXGI_FORMAT_R32G32B32A32_FLOAT, 0, 44, D3D11_INPUT_PER_VERTEX_DATA, 0},
};

/// `name` is the name of the shader file.
Shader MakeProgram(ID3D11Device* device, const char* name) {
    const std::string file = std::string("QVRA/Shaders/") + name;
    return Shader(device, kLayout, file, file);
}

Utils::Vector4 WithOne(const Utils::Vector3& colour) {
    return {colour.x(), colour.y(), colour.z(), 1.0f};
}

/// A vertex whose matrix index is out of range uses the last matrix.
void FillMatrices(std::array<Utils::Matrix4, kMatrixLimit>& target, const std::vector<Utils::Matrix4>& matrices) {
    const auto rest = std::ranges::transform(
        matrices, target.begin(), [](const Utils::Matrix4& matrix) { return Utils::Matrix4(matrix.transpose()); });
    std::fill(rest.out, target.end(), matrices.empty() ? Utils::Matrix4::Identity() : *(rest.out - 1));
}

void Fill(GeometryConstants& target, const GeometryDrawParams& params) {
    target.firstColour = WithOne(params.firstColour);
    target.secondColour = WithOne(params.secondColour);
    target.thirdColour = WithOne(params.thirdColour);
    target.fourthColour = WithOne(params.fourthColour);
    target.opacity = params.opacity;
    target.shaderParam1 = params.shaderParam1;
    target.shaderParam2 = params.shaderParam2;
    target.shaderParam3 = params.shaderParam3;
    target.shaderParam4 = params.shaderParam4;
    FillMatrices(target.matrices, params.matrices);
}

} // namespace

// In the order of GeometryProgram.
D3D11GeometryShader::D3D11GeometryShader(ID3D11Device* device)
    : device(device), programs{MakeProgram(device, "D3D11Geometry.fx"),
                               MakeProgram(device, "D3D11GeometryWithBlending.fx"),
                               MakeProgram(device, "D3D11GeometryEdgeBlend.fx"),
                               MakeProgram(device, "D3D11GeometryTW.fx"),
                               MakeProgram(device, "D3D11GeometryTW_TextureClip.fx"),
                               MakeProgram(device, "D3D11GeometryLevels.fx"),
                               MakeProgram(device, "FXAA.fx")},
      constantBuffer(CreateConstantBuffer(device, sizeof(GeometryConstants))),
      pictureBuffer(CreateConstantBuffer(device, sizeof(PictureConstants))), states(device),
      sampler(CreateSampler(device, D3D11_FILTER_ANISOTROPIC, D3D11_TEXTURE_ADDRESS_WRAP)),
      constants(std::make_unique<GeometryConstants>()) {}

void D3D11GeometryShader::Draw(const Utils::Matrix4& world, const Utils::Matrix4& view,
                               const Utils::Matrix4& projection, const Geometry& geometry,
                               ID3D11ShaderResourceView* bitmapView,
                               std::span<ID3D11ShaderResourceView* const> furtherViews,
                               const GeometryDrawParams& params) {
    if (params.matrices.size() >= kMatrixLimit)
        Utils::FatalError(HERE);
    const auto context = ImmediateContext(device);
    constants->world = world.transpose();
    constants->view = view.transpose();
    constants->projection = projection.transpose();
    Fill(*constants, params);
    Upload(context.Get(), constantBuffer.Get(), *constants);
    Upload(context.Get(), pictureBuffer.Get(), PictureConstantsOf(bitmapView));

    programs[static_cast<std::size_t>(ProgramOf(params))].Use(context.Get());
    ID3D11Buffer* const buffers[] = {constantBuffer.Get(), pictureBuffer.Get()};
    context->VSSetConstantBuffers(0, 2, buffers);
    context->PSSetConstantBuffers(0, 2, buffers);
    context->PSSetShaderResources(0, 1, &bitmapView);
    if (!furtherViews.empty())
        context->PSSetShaderResources(1, static_cast<UINT>(furtherViews.size()), furtherViews.data());
    const RasterizerScope rasterizer(context.Get());
    states.Set(context.Get(), params.blend, params.depthTest, params.depthWrite);
    context->PSSetSamplers(0, 1, sampler.GetAddressOf());

    ID3D11Buffer* const vertices = geometry.Buffer();
    constexpr UINT kStride = sizeof(GeometryVertex), kOffset = 0;
    context->IASetVertexBuffers(0, 1, &vertices, &kStride, &kOffset);
    context->IASetPrimitiveTopology(D3D11_PRIMITIVE_TOPOLOGY_TRIANGLELIST);
    context->Draw(static_cast<UINT>(geometry.Count()), 0);
}

} // namespace Rendering::D3D11
