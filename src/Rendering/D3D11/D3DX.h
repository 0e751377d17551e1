#pragma once

#include "Rendering/D3D11/D3D11Call.h"

#include <d3dcommon.h>
#include <string>

/// What the device needs of reading its files: shader programs and DDS textures.
namespace Rendering::D3D11 {

/// Compiles one entry of an HLSL file, without defines and includes. `errors` is null where there is nothing to say.
HRESULT CompileFromFile(const std::string& path, const char* entry, const char* profile, UINT flags,
                        ComPtr<ID3DBlob>& code, ComPtr<ID3DBlob>& errors);

/// A DDS file as a texture for programs, with its rows in the file's order, which X-Plane begins at the picture's
/// bottom. What is wrong with a file goes to the log.
HRESULT CreateTextureFromFile(ID3D11Device* device, const std::string& path, ComPtr<ID3D11Texture2D>& texture);

} // namespace Rendering::D3D11
