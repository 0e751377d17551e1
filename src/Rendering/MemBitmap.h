#pragma once

#include <cstdint>
#include <memory>
#include <span>

namespace Rendering {

/// An image in main memory, 32 bits per pixel, rows from the top without padding. The order of a pixel's four bytes
/// depends on the source: blue, green, red, alpha, premultiplied, from cairo; red, green, blue, alpha from a device's
/// textures.
class MemBitmap {
public:
    MemBitmap() = default;
    MemBitmap(std::uint64_t width, std::uint64_t height) { Resize(width, height); }

    /// Drops the old pixels; the new ones are all zero. A width or height of 0 is a fatal error.
    void Resize(std::uint64_t newWidth, std::uint64_t newHeight);

    std::uint64_t Width() const { return width; }
    std::uint64_t Height() const { return height; }
    /// Width * height pixels, row by row; empty before the first resize.
    std::span<std::uint32_t> Pixels() { return {pixels.get(), width * height}; }
    std::span<const std::uint32_t> Pixels() const { return {pixels.get(), width * height}; }
    /// The position must be inside the bitmap.
    void SetPixel(std::uint64_t x, std::uint64_t y, std::uint8_t b0, std::uint8_t b1, std::uint8_t b2, std::uint8_t b3);
    /// Resizes the target to this size and swaps the first and the third byte of each pixel. The target may be this
    /// same bitmap.
    void CopySwappingRedBlue(MemBitmap& target) const;

private:
    std::uint64_t width = 0, height = 0;
    std::unique_ptr<std::uint32_t[]> pixels;
};

} // namespace Rendering
