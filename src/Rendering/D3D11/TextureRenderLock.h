#pragma once

#include "Rendering/D3D11/D3D11Call.h"
#include "Utils/NonAssignable.h"

#include <exception>

namespace Rendering::D3D11 {

/// Keeps other processes from a shared texture for the length of a scope; a texture without a keyed mutex needs none.
class TextureRenderLock : public Utils::NonAssignable {
public:
    /// A mutex that cannot be acquired, or that another process left without releasing it, is a fatal error.
    explicit TextureRenderLock(IUnknown* texture);
    /// A mutex that cannot be released is a fatal error, or a line in the log while an exception is under way.
    ~TextureRenderLock() noexcept(false);

private:
    const int exceptionsBefore = std::uncaught_exceptions();
    UINT64 key = 0;
    ComPtr<IDXGIKeyedMutex> mutex;
};

} // namespace Rendering::D3D11
