#include "Rendering/MemBitmap.h"

#include "Utils/FatalError.h"

#include <algorithm>

namespace Rendering {

void MemBitmap::Resize(std::uint64_t newWidth, std::uint64_t newHeight) {
    if (newWidth == 0 || newHeight == 0)
        Utils::FatalError(HERE);
    pixels.reset();
    width = height = 0;
    pixels = std::make_unique<std::uint32_t[]>(newWidth * newHeight);
    width = newWidth;
    height = newHeight;
}

void MemBitmap::SetPixel(std::uint64_t x, std::uint64_t y, std::uint8_t b0, std::uint8_t b1, std::uint8_t b2,
                         std::uint8_t b3) {
    pixels[width * y + x] =
        std::uint32_t{b0} | std::uint32_t{b1} << 8 | std::uint32_t{b2} << 16 | std::uint32_t{b3} << 24;
}

void MemBitmap::CopySwappingRedBlue(MemBitmap& target) const {
    if (&target != this)
        target.Resize(width, height);
    std::transform(Pixels().begin(), Pixels().end(), target.Pixels().begin(), [](std::uint32_t pixel) {
        return (pixel & 0xFF00FF00) | (pixel & 0x000000FF) << 16 | (pixel & 0x00FF0000) >> 16;
    });
}

} // namespace Rendering
