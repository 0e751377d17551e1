#pragma once

#include "Utils/FatalError.h"

#include <d3d11.h>
#include <wrl/client.h>

#undef LoadBitmap // the name of an operation of Context

namespace Rendering::D3D11 {

using Microsoft::WRL::ComPtr;

/// Turns a failed call into a fatal error with its result code. The location is the caller's, from HERE.
inline void Check(HRESULT result, const char* file, std::int32_t line) {
    if (FAILED(result))
        Utils::FatalError(file, line, result);
}

inline ComPtr<ID3D11DeviceContext> ImmediateContext(ID3D11Device* device) {
    ComPtr<ID3D11DeviceContext> context;
    device->GetImmediateContext(&context);
    return context;
}

} // namespace Rendering::D3D11
