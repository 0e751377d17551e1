#pragma once

#include "Rendering/BlockDecoder.h"
#include "Rendering/PlainPixels.h"

#include <cstdint>
#include <optional>
#include <string_view>

namespace Rendering {

/// Pixel storage of a DDS file: compressed blocks, otherwise uncompressed.
struct DdsFormat {
    std::optional<BlockCode> block;
    PixelLayout plain;
};

/// The format of a DXGI number from the header's DX10 part; none if unsupported. Typeless and sRGB formats are read as
/// the corresponding UNORM formats.
std::optional<DdsFormat> DxgiFormat(std::uint32_t number);
/// The format of the header's four-character code, which may be a D3DFMT number instead.
std::optional<DdsFormat> FourCCFormat(std::string_view code);

} // namespace Rendering
