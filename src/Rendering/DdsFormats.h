#pragma once

#include "Rendering/BlockDecoder.h"
#include "Rendering/PlainPixels.h"

#include <cstdint>
#include <optional>
#include <string_view>

namespace Rendering {

/// How a DDS file holds its pixels: in compressed blocks, or else plain.
struct DdsFormat {
    std::optional<BlockCode> block;
    PixelLayout plain;
};

/// The format of a DXGI number, which stands in the header's DX10 part; none for one that is not read. Typeless formats
/// and those in sRGB are read as their plain relatives.
std::optional<DdsFormat> DxgiFormat(std::uint32_t number);
/// The format of the header's four-character code, which may be a D3DFMT number instead.
std::optional<DdsFormat> FourCCFormat(std::string_view code);

} // namespace Rendering
