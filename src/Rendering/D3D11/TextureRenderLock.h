#pragma once

#include "Rendering/D3D11/D3D11Call.h"
#include "Utils/NonAssignable.h"

namespace Rendering::D3D11 {

/// Keeps other processes from a shared texture for the length of a scope; a texture without a keyed mutex needs none.
class TextureRenderLock : public Utils::NonAssignable {
public:
    explicit TextureRenderLock(ID3D11Texture2D* texture);
    /// A mutex that cannot be released is a fatal error.
    ~TextureRenderLock() noexcept(false);

private:
    UINT64 key = 0;
    ComPtr<IDXGIKeyedMutex> mutex;
};

} // namespace Rendering::D3D11
