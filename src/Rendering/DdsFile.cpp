#include "Rendering/DdsFile.h"

#include "Utils/Files.h"

#include <algorithm>
#include <span>
#include <utility>

namespace Rendering {

namespace {

/// The row of a level for the file's row y, which counts from the image's bottom.
std::span<std::uint32_t> FileRow(MemBitmap& level, std::uint64_t y) {
    return level.Pixels().subspan((level.Height() - 1 - y) * level.Width(), level.Width());
}

std::uint32_t Packed(const Pixel& pixel) {
    return std::uint32_t{pixel[0]} | std::uint32_t{pixel[1]} << 8 | std::uint32_t{pixel[2]} << 16 |
           std::uint32_t{pixel[3]} << 24;
}

void StoreBlock(const PixelBlock& block, std::uint64_t left, std::uint64_t top, MemBitmap& level) {
    for (std::uint64_t y = top; y < std::min(top + 4, level.Height()); ++y) {
        const std::span<std::uint32_t> row = FileRow(level, y);
        for (std::uint64_t x = left; x < std::min(left + 4, level.Width()); ++x)
            row[x] = Packed(block[4 * (y - top) + x - left]);
    }
}

void DecodeBlocks(std::string_view bytes, BlockCode code, MemBitmap& level, const std::atomic<bool>& stop) {
    const std::size_t size = BlockSize(code);
    PixelBlock block;
    for (std::uint64_t top = 0; top < level.Height() && !stop; top += 4)
        for (std::uint64_t left = 0; left < level.Width(); left += 4) {
            DecodeBlock(bytes.substr(0, size), code, block);
            StoreBlock(block, left, top, level);
            bytes.remove_prefix(size);
        }
}

void DecodePlain(std::string_view bytes, const PixelLayout& layout, MemBitmap& level, const std::atomic<bool>& stop) {
    for (std::uint64_t y = 0; y < level.Height() && !stop; ++y)
        for (std::uint32_t& target : FileRow(level, y)) {
            target = Packed(DecodePixel(bytes, layout));
            bytes.remove_prefix(layout.bytes);
        }
}

/// The first `count` levels.
std::vector<MemBitmap> DecodeLevels(std::string_view bytes, const DdsHeader& header, std::uint32_t count,
                                    const std::atomic<bool>& stop) {
    std::string_view pixels = bytes.substr(header.pixelsAt);
    std::vector<MemBitmap> levels;
    for (std::uint32_t i = 0; i < count; ++i) {
        MemBitmap& level = levels.emplace_back(header.WidthOf(i), header.HeightOf(i));
        if (header.format.block)
            DecodeBlocks(pixels, *header.format.block, level, stop);
        else
            DecodePlain(pixels, header.format.plain, level, stop);
        pixels.remove_prefix(header.BytesOf(i));
    }
    return levels;
}

std::string ReadBytes(const std::string& path) {
    std::string bytes = Utils::ReadFile(path);
    if (bytes.empty())
        throw DdsFault(path + ": the file is empty or cannot be read");
    return bytes;
}

constexpr std::atomic<bool> kNeverStop{false};

} // namespace

std::vector<MemBitmap> DecodeDds(std::string_view bytes, const std::string& name) {
    const DdsHeader header = ReadDdsHeader(bytes, name);
    return DecodeLevels(bytes, header, header.levels, kNeverStop);
}

std::vector<MemBitmap> ReadDdsFile(const std::string& path) {
    return DecodeDds(ReadBytes(path), path);
}

MemBitmap ReadFullSizeDds(const std::string& path, const std::atomic<bool>& stop) {
    const std::string bytes = ReadBytes(path);
    return std::move(DecodeLevels(bytes, ReadDdsHeader(bytes, path), 1, stop).front());
}

} // namespace Rendering
