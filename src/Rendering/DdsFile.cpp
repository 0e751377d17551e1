#include "Rendering/DdsFile.h"

#include "Utils/Paths.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <optional>
#include <span>

namespace Rendering {

namespace {

using Pixel = std::array<std::uint8_t, 4>; ///< red, green, blue, alpha
using Block = std::array<Pixel, 16>;       ///< 4 x 4, row by row

constexpr std::size_t kHeaderSize = 128;
constexpr std::size_t kExtendedHeaderSize = 148; ///< with the DX10 part
constexpr std::uint32_t kSizeLimit = 16384;      ///< pixels; the largest that the devices take
constexpr std::uint32_t kAlphaPixels = 0x1, kFourCC = 0x4, kRgbPixels = 0x40;
constexpr std::uint32_t kCubeMap = 0x200, kVolume = 0x200000, kExtendedCubeMap = 0x4;

enum class Encoding { Bc1, Bc2, Bc3, Plain };

/// Which byte of a plain pixel holds which channel; no byte for alpha means opaque.
using ByteOrder = std::array<std::optional<std::uint8_t>, 4>;

struct Format {
    Encoding encoding = Encoding::Plain;
    ByteOrder order = {};
};

struct Header {
    std::uint32_t width = 0, height = 0, levels = 0;
    Format format;
    std::size_t pixelsAt = kHeaderSize;
};

/// Little-endian words of the file; reading stays inside because the sizes are checked beforehand.
std::uint32_t Word(std::string_view bytes, std::size_t at) {
    std::uint32_t value = 0;
    for (std::size_t i = 4; i-- > 0;)
        value = value << 8 | static_cast<std::uint8_t>(bytes[at + i]);
    return value;
}

std::uint16_t HalfWord(std::string_view bytes, std::size_t at) {
    return static_cast<std::uint16_t>(static_cast<std::uint8_t>(bytes[at]) | static_cast<std::uint8_t>(bytes[at + 1])
                                                                                 << 8);
}

[[noreturn]] void Fail(const std::string& name, const std::string& fault) {
    throw DdsFault(name + ": " + fault);
}

/// The byte that a channel's mask selects; masks that do not select a whole byte are not read.
std::uint8_t MaskedByte(std::uint32_t mask, const std::string& name) {
    for (std::uint8_t byte = 0; byte < 4; ++byte)
        if (mask == 0xFFu << 8 * byte)
            return byte;
    Fail(name, "the colour masks do not name whole bytes, which plain pixels need");
}

Format PlainFormat(std::string_view bytes, std::uint32_t flags, const std::string& name) {
    if (const std::uint32_t bits = Word(bytes, 88); bits != 32)
        Fail(name, "plain pixels of " + std::to_string(bits) + " bits, only 32 bits are read");
    Format format;
    for (std::size_t channel = 0; channel < 3; ++channel)
        format.order[channel] = MaskedByte(Word(bytes, 92 + 4 * channel), name);
    if (const std::uint32_t alpha = Word(bytes, 104); (flags & kAlphaPixels) && alpha != 0)
        format.order[3] = MaskedByte(alpha, name);
    return format;
}

Format ExtendedFormat(std::string_view bytes, const std::string& name) {
    if (bytes.size() < kExtendedHeaderSize)
        Fail(name, "the file ends inside its extended header");
    if (Word(bytes, 136) & kExtendedCubeMap)
        Fail(name, "a cube map is no picture");
    switch (const std::uint32_t code = Word(bytes, 128)) {
    case 28: // R8G8B8A8 and its sRGB form; likewise below
    case 29:
        return {Encoding::Plain, {0, 1, 2, 3}};
    case 71:
    case 72:
        return {Encoding::Bc1, {}};
    case 74:
    case 75:
        return {Encoding::Bc2, {}};
    case 77:
    case 78:
        return {Encoding::Bc3, {}};
    case 87:
    case 91:
        return {Encoding::Plain, {2, 1, 0, 3}};
    case 88:
    case 93:
        return {Encoding::Plain, {2, 1, 0, std::nullopt}};
    default:
        Fail(name, "pixel format " + std::to_string(code) + ", only BC1, BC2, BC3 and plain 32-bit are read");
    }
}

Format ReadFormat(std::string_view bytes, const std::string& name) {
    const std::uint32_t flags = Word(bytes, 80);
    if (!(flags & kFourCC)) {
        if (!(flags & kRgbPixels))
            Fail(name, "the pixels are neither compressed nor colours");
        return PlainFormat(bytes, flags, name);
    }
    const std::string_view code = bytes.substr(84, 4);
    if (code == "DXT1")
        return {Encoding::Bc1, {}};
    if (code == "DXT3")
        return {Encoding::Bc2, {}};
    if (code == "DXT5")
        return {Encoding::Bc3, {}};
    if (code == "DX10")
        return ExtendedFormat(bytes, name);
    Fail(name, "compression code " + std::to_string(Word(bytes, 84)) + ", only DXT1, DXT3, DXT5 and DX10 are read");
}

std::size_t LevelSize(const Format& format, std::uint32_t width, std::uint32_t height) {
    if (format.encoding == Encoding::Plain)
        return std::size_t{4} * width * height;
    const std::size_t blockSize = format.encoding == Encoding::Bc1 ? 8 : 16;
    return blockSize * ((width + 3) / 4) * ((height + 3) / 4);
}

void CheckLength(const Header& header, std::size_t length, const std::string& name) {
    std::size_t needed = header.pixelsAt;
    for (std::uint32_t level = 0; level < header.levels; ++level)
        needed += LevelSize(header.format, std::max(header.width >> level, 1u), std::max(header.height >> level, 1u));
    if (length < needed)
        Fail(name, "the file has " + std::to_string(length) + " bytes, its header promises " + std::to_string(needed));
}

Header ReadHeader(std::string_view bytes, const std::string& name) {
    if (bytes.size() < kHeaderSize || bytes.substr(0, 4) != "DDS " || Word(bytes, 4) != 124 || Word(bytes, 76) != 32)
        Fail(name, "not a DDS file, it does not begin with a DDS header of 128 bytes");
    Header header;
    header.height = Word(bytes, 12);
    header.width = Word(bytes, 16);
    const std::string size = std::to_string(header.width) + " x " + std::to_string(header.height) + " pixels";
    if (header.width == 0 || header.height == 0 || header.width > kSizeLimit || header.height > kSizeLimit)
        Fail(name, size + ", each side must be from 1 to " + std::to_string(kSizeLimit));
    if (Word(bytes, 112) & (kCubeMap | kVolume))
        Fail(name, "a cube map or a volume is no picture");
    // Writers often leave the flag for the level count unset; 0 stands for the full size alone.
    header.levels = std::max(Word(bytes, 28), 1u);
    const auto most = static_cast<std::uint32_t>(std::bit_width(std::max(header.width, header.height)));
    if (header.levels > most)
        Fail(name, std::to_string(header.levels) + " mip levels, " + size + " have at most " + std::to_string(most));
    header.format = ReadFormat(bytes, name);
    if (Word(bytes, 80) & kFourCC && bytes.substr(84, 4) == "DX10")
        header.pixelsAt = kExtendedHeaderSize;
    CheckLength(header, bytes.size(), name);
    return header;
}

/// Five, six and five bits; the upper bits fill the lower ones, so that the largest value becomes 255.
Pixel ExpandColour(std::uint16_t colour) {
    const int red = colour >> 11, green = colour >> 5 & 63, blue = colour & 31;
    return {static_cast<std::uint8_t>(red << 3 | red >> 2), static_cast<std::uint8_t>(green << 2 | green >> 4),
            static_cast<std::uint8_t>(blue << 3 | blue >> 2), 255};
}

/// (a * weightA + b * weightB) / (weightA + weightB), rounded to the nearest.
std::uint8_t Mix(int a, int weightA, int b, int weightB) {
    const int sum = weightA + weightB;
    return static_cast<std::uint8_t>((a * weightA + b * weightB + sum / 2) / sum);
}

Pixel MixColours(const Pixel& a, int weightA, const Pixel& b, int weightB) {
    return {Mix(a[0], weightA, b[0], weightB), Mix(a[1], weightA, b[1], weightB), Mix(a[2], weightA, b[2], weightB),
            255};
}

/// The eight bytes of a colour block. In BC1 a first colour that is not the larger one makes the fourth transparent.
void DecodeColours(std::string_view bytes, bool mayBeTransparent, Block& block) {
    const std::uint16_t first = HalfWord(bytes, 0), second = HalfWord(bytes, 2);
    const Pixel a = ExpandColour(first), b = ExpandColour(second);
    std::array<Pixel, 4> palette = {a, b, MixColours(a, 2, b, 1), MixColours(a, 1, b, 2)};
    if (mayBeTransparent && first <= second) {
        palette[2] = MixColours(a, 1, b, 1);
        palette[3] = {0, 0, 0, 0};
    }
    std::uint32_t choices = Word(bytes, 4);
    for (Pixel& pixel : block) {
        pixel = palette[choices & 3];
        choices >>= 2;
    }
}

/// Two pixels a byte, the first in the lower half.
void DecodeFourBitAlpha(std::string_view bytes, Block& block) {
    for (std::size_t i = 0; i < block.size(); ++i) {
        const int alpha = static_cast<std::uint8_t>(bytes[i / 2]) >> 4 * (i % 2) & 15;
        block[i][3] = static_cast<std::uint8_t>(alpha * 17);
    }
}

/// Two alphas, then three bits a pixel. A first alpha that is the larger one has six mixtures behind it, any other
/// four, and 0 and 255 as the last two.
void DecodeInterpolatedAlpha(std::string_view bytes, Block& block) {
    const int a = static_cast<std::uint8_t>(bytes[0]), b = static_cast<std::uint8_t>(bytes[1]);
    std::array<std::uint8_t, 8> palette = {
        static_cast<std::uint8_t>(a), static_cast<std::uint8_t>(b), 0, 0, 0, 0, 0, 255};
    const int steps = a > b ? 7 : 5;
    for (int i = 1; i < steps; ++i)
        palette[static_cast<std::size_t>(i) + 1] = Mix(a, steps - i, b, i);
    std::uint64_t choices = HalfWord(bytes, 2) | std::uint64_t{Word(bytes, 4)} << 16;
    for (Pixel& pixel : block) {
        pixel[3] = palette[choices & 7];
        choices >>= 3;
    }
}

void DecodeBlock(std::string_view bytes, Encoding encoding, Block& block) {
    if (encoding == Encoding::Bc1)
        return DecodeColours(bytes, true, block);
    DecodeColours(bytes.substr(8), false, block);
    if (encoding == Encoding::Bc2)
        DecodeFourBitAlpha(bytes, block);
    else
        DecodeInterpolatedAlpha(bytes, block);
}

/// The row of a level that holds the file's row y, which counts from the picture's bottom.
std::span<std::uint32_t> FileRow(MemBitmap& level, std::uint64_t y) {
    return level.Pixels().subspan((level.Height() - 1 - y) * level.Width(), level.Width());
}

std::uint32_t Packed(const Pixel& pixel) {
    return std::uint32_t{pixel[0]} | std::uint32_t{pixel[1]} << 8 | std::uint32_t{pixel[2]} << 16 |
           std::uint32_t{pixel[3]} << 24;
}

void StoreBlock(const Block& block, std::uint64_t left, std::uint64_t top, MemBitmap& level) {
    for (std::uint64_t y = top; y < std::min(top + 4, level.Height()); ++y) {
        const std::span<std::uint32_t> row = FileRow(level, y);
        for (std::uint64_t x = left; x < std::min(left + 4, level.Width()); ++x)
            row[x] = Packed(block[4 * (y - top) + x - left]);
    }
}

void DecodeCompressed(std::string_view bytes, Encoding encoding, MemBitmap& level) {
    const std::size_t blockSize = encoding == Encoding::Bc1 ? 8 : 16;
    Block block;
    std::size_t at = 0;
    for (std::uint64_t top = 0; top < level.Height(); top += 4)
        for (std::uint64_t left = 0; left < level.Width(); left += 4, at += blockSize) {
            DecodeBlock(bytes.substr(at, blockSize), encoding, block);
            StoreBlock(block, left, top, level);
        }
}

void DecodePlain(std::string_view bytes, const ByteOrder& order, MemBitmap& level) {
    std::size_t at = 0;
    for (std::uint64_t y = 0; y < level.Height(); ++y)
        for (std::uint32_t& target : FileRow(level, y)) {
            Pixel pixel = {0, 0, 0, 255};
            for (std::size_t channel = 0; channel < 4; ++channel)
                if (order[channel])
                    pixel[channel] = static_cast<std::uint8_t>(bytes[at + *order[channel]]);
            target = Packed(pixel);
            at += 4;
        }
}

} // namespace

std::vector<MemBitmap> DecodeDds(std::string_view bytes, const std::string& name) {
    const Header header = ReadHeader(bytes, name);
    std::string_view pixels = bytes.substr(header.pixelsAt);
    std::vector<MemBitmap> levels;
    for (std::uint32_t i = 0; i < header.levels; ++i) {
        MemBitmap& level = levels.emplace_back(std::max(header.width >> i, 1u), std::max(header.height >> i, 1u));
        if (header.format.encoding == Encoding::Plain)
            DecodePlain(pixels, header.format.order, level);
        else
            DecodeCompressed(pixels, header.format.encoding, level);
        pixels.remove_prefix(LevelSize(header.format, static_cast<std::uint32_t>(level.Width()),
                                       static_cast<std::uint32_t>(level.Height())));
    }
    return levels;
}

std::vector<MemBitmap> ReadDdsFile(const std::string& path) {
    const std::string bytes = Utils::ReadFile(path);
    if (bytes.empty())
        Fail(path, "the file is empty or cannot be read");
    return DecodeDds(bytes, path);
}

} // namespace Rendering
