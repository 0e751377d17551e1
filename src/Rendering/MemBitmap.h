#pragma once

#include <cstdint>
#include <memory>
#include <span>

namespace Rendering {

/// A picture in main memory, 32 bits a pixel, rows from the top without gaps. The order of a pixel's four bytes is its
/// maker's: blue, green, red, alpha, premultiplied, from cairo; red, green, blue, alpha for a device's textures.
class MemBitmap {
public:
    MemBitmap() = default;
    MemBitmap(std::uint64_t width, std::uint64_t height) { Resize(width, height); }

    /// Drops the old pixels; the new ones are all zero. A width or height of 0 is a fatal error.
    void Resize(std::uint64_t newWidth, std::uint64_t newHeight);

    std::uint64_t Width() const { return width; }
    std::uint64_t Height() const { return height; }
    /// Width * height pixels, row by row; empty in a bitmap that was never resized.
    std::span<std::uint32_t> Pixels() { return {pixels.get(), width * height}; }
    std::span<const std::uint32_t> Pixels() const { return {pixels.get(), width * height}; }
    /// The caller stays inside.
    void SetPixel(std::uint64_t x, std::uint64_t y, std::uint8_t b0, std::uint8_t b1, std::uint8_t b2, std::uint8_t b3);
    /// Resizes the target to this size and swaps the first and the third byte of each pixel. The target may be this
    /// bitmap.
    void CopySwappingRedBlue(MemBitmap& target) const;

private:
    std::uint64_t width = 0, height = 0;
    std::unique_ptr<std::uint32_t[]> pixels;
};

} // namespace Rendering
