#include "Rendering/D3D11/TextureRenderLock.h"

namespace Rendering::D3D11 {

TextureRenderLock::TextureRenderLock(ID3D11Texture2D* texture) {
    if (SUCCEEDED(texture->QueryInterface(IID_PPV_ARGS(&mutex))) && mutex)
        Check(mutex->AcquireSync(key, INFINITE), HERE);
}

TextureRenderLock::~TextureRenderLock() noexcept(false) {
    if (mutex)
        Check(mutex->ReleaseSync(key), HERE);
}

} // namespace Rendering::D3D11
