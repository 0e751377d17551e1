#pragma once

#include "Rendering/PixelBlock.h"

#include <string_view>

namespace Rendering {

/// The bits of a pixel for one channel; 0 bits if the channel is missing.
struct ChannelBits {
    std::uint8_t shift = 0, bits = 0;
};

/// Layout of uncompressed pixels, each a little-endian number.
struct PixelLayout {
    std::uint8_t bytes = 4;
    std::array<ChannelBits, 4> channels = {}; ///< red, green, blue, alpha; they may share bits
    bool areFloats = false; ///< of 16 or 32 bits at whole bytes; otherwise integers in up to 8 bytes per pixel
};

/// Decodes one pixel of `layout.bytes` bytes. Channels are scaled to 8 bits, floats clamped to 0 to 1; a missing colour
/// is 0, a missing alpha 255.
Pixel DecodePixel(std::string_view bytes, const PixelLayout& layout);

} // namespace Rendering
