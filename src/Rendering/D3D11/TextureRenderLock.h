#pragma once

#include "Rendering/D3D11/D3D11Call.h"
#include "Utils/NonAssignable.h"

#include <exception>

namespace Rendering::D3D11 {

/// Locks out other processes from a shared texture for a scope; does nothing for a texture without a keyed mutex.
class TextureRenderLock : public Utils::NonAssignable {
public:
    /// A mutex that cannot be acquired, or that another process left without releasing it, is a fatal error.
    explicit TextureRenderLock(IUnknown* texture);
    /// A mutex that cannot be released is a fatal error, or a log line during stack unwinding.
    ~TextureRenderLock() noexcept(false);

private:
    const int exceptionsBefore = std::uncaught_exceptions();
    UINT64 key = 0;
    ComPtr<IDXGIKeyedMutex> mutex;
};

} // namespace Rendering::D3D11
