#pragma once

#include "Rendering/D3D11/D3D11Call.h"
#include "Utils/NonAssignable.h"

#include <span>
#include <string>

namespace Rendering::D3D11 {

/// One compiled shader program with its vertex layout. If a file does not compile, the compiler's messages are shown to
/// the user, followed by a fatal error.
class Shader : public Utils::NonAssignable {
public:
    /// The entry points are VS in the vertex file and PS in the pixel file, both below the data folder.
    Shader(ID3D11Device* device, std::span<const D3D11_INPUT_ELEMENT_DESC> layout, const std::string& vertexFile,
           const std::string& pixelFile);

    void Use(ID3D11DeviceContext* context) const;

private:
    ComPtr<ID3D11VertexShader> vertexShader;
    ComPtr<ID3D11PixelShader> pixelShader;
    ComPtr<ID3D11InputLayout> inputLayout;
};

} // namespace Rendering::D3D11
