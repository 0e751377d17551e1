#include "Rendering/D3D11/Shader.h"

#include "Rendering/D3D11/D3DX.h"
#include "Rendering/GeometryLoader.h"

namespace Rendering::D3D11 {

namespace {

constexpr const char* kCompilerCaption = "Vorelle FSX: Shader compilation error";
constexpr UINT kDebug = 1, kStrictness = 2048;

/// Not every compiler ends its text with a NUL byte.
std::string TextOf(ID3DBlob* errors) {
    const std::string text(static_cast<const char*>(errors->GetBufferPointer()), errors->GetBufferSize());
    return text.substr(0, text.find('\0'));
}

ComPtr<ID3DBlob> Compile(const std::string& file, const char* entry, const char* profile) {
    ComPtr<ID3DBlob> code, errors;
    const HRESULT result = CompileFromFile(ResolveDataPath(file), entry, profile, kDebug | kStrictness, code, errors);
    if (FAILED(result) && errors)
        Utils::ShowErrorBox(kCompilerCaption, TextOf(errors.Get()));
    Check(result, HERE);
    return code;
}

} // namespace

Shader::Shader(ID3D11Device* device, std::span<const D3D11_INPUT_ELEMENT_DESC> layout, const std::string& vertexFile,
               const std::string& pixelFile) {
    const auto vertexCode = Compile(vertexFile, "VS", "vs_4_0");
    const auto pixelCode = Compile(pixelFile, "PS", "ps_4_0");
    Check(
        device->CreateVertexShader(vertexCode->GetBufferPointer(), vertexCode->GetBufferSize(), nullptr, &vertexShader),
        HERE);
    Check(device->CreatePixelShader(pixelCode->GetBufferPointer(), pixelCode->GetBufferSize(), nullptr, &pixelShader),
          HERE);
    Check(device->CreateInputLayout(layout.data(), static_cast<UINT>(layout.size()), vertexCode->GetBufferPointer(),
                                    vertexCode->GetBufferSize(), &inputLayout),
          HERE);
}

void Shader::Use(ID3D11DeviceContext* context) const {
    context->IASetInputLayout(inputLayout.Get());
    context->VSSetShader(vertexShader.Get(), nullptr, 0);
    context->PSSetShader(pixelShader.Get(), nullptr, 0);
}

} // namespace Rendering::D3D11
