#include "Rendering/D3D11/D3DX.h"

#include "Logging/Logger.h"
#include "Rendering/DdsFile.h"
#include "Utils/Files.h"

#include <algorithm>
#include <d3dcompiler.h>
#include <vector>

namespace Rendering::D3D11 {

namespace {

/// The reader returns the top row first.
void TurnUpsideDown(MemBitmap& bitmap) {
    const auto pixels = bitmap.Pixels();
    for (std::uint64_t y = 0; y < bitmap.Height() / 2; ++y)
        std::ranges::swap_ranges(pixels.subspan(y * bitmap.Width(), bitmap.Width()),
                                 pixels.subspan((bitmap.Height() - 1 - y) * bitmap.Width(), bitmap.Width()));
}

HRESULT CreateTexture(ID3D11Device* device, const std::vector<MemBitmap>& levels, ComPtr<ID3D11Texture2D>& texture) {
    D3D11_TEXTURE2D_DESC description{};
    description.Width = static_cast<UINT>(levels.front().Width());
    description.Height = static_cast<UINT>(levels.front().Height());
    description.MipLevels = static_cast<UINT>(levels.size());
    description.ArraySize = 1;
    description.Format = DXGI_FORMAT_R8G8B8A8_UNORM;
    description.SampleDesc.Count = 1;
    description.BindFlags = D3D11_BIND_SHADER_RESOURCE;
    std::vector<D3D11_SUBRESOURCE_DATA> data;
    for (const MemBitmap& level : levels)
        data.push_back({level.Pixels().data(), static_cast<UINT>(4 * level.Width()), 0});
    return device->CreateTexture2D(&description, data.data(), &texture);
}

} // namespace

HRESULT CompileFromFile(const std::string& path, const char* entry, const char* profile, UINT flags,
                        ComPtr<ID3DBlob>& code, ComPtr<ID3DBlob>& errors) {
    const std::string text = Utils::ReadFile(path);
    if (text.empty()) {
        Logging::Logger::Get().Log(HERE, path + ": the file is empty or cannot be read");
        return HRESULT_FROM_WIN32(ERROR_FILE_NOT_FOUND);
    }
    return D3DCompile(text.data(), text.size(), path.c_str(), nullptr, nullptr, entry, profile, flags, 0, &code,
                      &errors);
}

HRESULT CreateTextureFromFile(ID3D11Device* device, const std::string& path, ComPtr<ID3D11Texture2D>& texture) {
    try {
        std::vector<MemBitmap> levels = ReadDdsFile(path);
        std::ranges::for_each(levels, TurnUpsideDown);
        return CreateTexture(device, levels, texture);
    } catch (const DdsFault& fault) {
        Logging::Logger::Get().Log(HERE, fault.what());
        return E_FAIL;
    }
}

} // namespace Rendering::D3D11
