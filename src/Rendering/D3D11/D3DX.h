#pragma once

#include "Rendering/D3D11/D3D11Call.h"

#include <d3dcommon.h>
#include <string>

/// Reads the device's files: shaders and DDS textures.
namespace Rendering::D3D11 {

/// Compiles one entry point of an HLSL file, without defines and includes. `errors` is null if there are none.
HRESULT CompileFromFile(const std::string& path, const char* entry, const char* profile, UINT flags,
                        ComPtr<ID3DBlob>& code, ComPtr<ID3DBlob>& errors);

/// A DDS file as a texture for shaders, with its rows in the file's order, which in X-Plane starts at the image's
/// bottom. Faults of a file go to the log.
HRESULT CreateTextureFromFile(ID3D11Device* device, const std::string& path, ComPtr<ID3D11Texture2D>& texture);

} // namespace Rendering::D3D11
