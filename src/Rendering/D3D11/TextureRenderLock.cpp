#include "Rendering/D3D11/TextureRenderLock.h"

#include "Logging/Logger.h"

namespace Rendering::D3D11 {

TextureRenderLock::TextureRenderLock(IUnknown* texture) {
    if (FAILED(texture->QueryInterface(IID_PPV_ARGS(&mutex))) || !mutex)
        return;
    // FAILED() does not cover an abandoned mutex, but the texture that it guards may be incomplete.
    if (const HRESULT result = mutex->AcquireSync(key, INFINITE); result != S_OK)
        Utils::FatalError(HERE, result);
}

TextureRenderLock::~TextureRenderLock() noexcept(false) {
    if (!mutex)
        return;
    const HRESULT result = mutex->ReleaseSync(key);
    if (std::uncaught_exceptions() == exceptionsBefore)
        Check(result, HERE);
    else if (FAILED(result)) // a second exception would end the process
        Logging::Logger::Get().Log(HERE, "A shared texture's mutex is not released: " + std::to_string(result));
}

} // namespace Rendering::D3D11
