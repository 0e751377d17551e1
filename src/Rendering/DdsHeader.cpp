#include "Rendering/DdsHeader.h"

#include "Rendering/LittleEndian.h"

#include <algorithm>
#include <bit>
#include <sstream>

namespace Rendering {

namespace {

constexpr std::size_t kHeaderSize = 128;
constexpr std::size_t kExtendedHeaderSize = 148; ///< with the DX10 part
constexpr std::uint32_t kSizeLimit = 16384;      ///< pixels; the limit of the devices
constexpr std::uint32_t kAlphaPixels = 0x1, kAlphaOnly = 0x2, kFourCC = 0x4, kRgb = 0x40, kLuminance = 0x20000;
constexpr std::uint32_t kCubeMap = 0x200, kVolume = 0x200000, kExtendedCubeMap = 0x4;

/// Whether a file begins with a complete header of the old kind.
struct Source {
    std::string_view bytes;
    const std::string& name;

    std::uint32_t Word(std::size_t at) const { return static_cast<std::uint32_t>(LittleEndian(bytes, at, 4)); }
    std::uint32_t Flags() const { return Word(80); }
    bool HasCode() const { return Flags() & kFourCC; }
    std::string_view Code() const { return bytes.substr(84, 4); }
    std::uint32_t BitsPerPixel() const { return Word(88); }
    std::uint32_t Mask(std::size_t channel) const { return Word(92 + 4 * channel); }
    bool IsExtended() const { return HasCode() && Code() == "DX10"; }
    bool HasExtension() const { return bytes.size() >= kExtendedHeaderSize; }
    std::uint32_t DxgiNumber() const { return Word(128); }
};

/// The pixel format according to the header, for the log.
std::string FormatName(const Source& source) {
    std::ostringstream text;
    const std::string_view code = source.Code();
    if (source.IsExtended() && source.HasExtension())
        text << "DXGI format " << source.DxgiNumber();
    else if (source.HasCode() && std::ranges::all_of(code, [](char c) { return c > ' ' && c <= '~'; }))
        text << "compression code " << code;
    else if (source.HasCode())
        text << "D3DFMT number " << source.Word(84);
    else {
        text << source.BitsPerPixel() << " bits a pixel, flags " << std::hex << source.Flags() << ", masks";
        for (std::size_t channel = 0; channel < 4; ++channel)
            text << ' ' << source.Mask(channel);
    }
    return text.str();
}

[[noreturn]] void Fail(const Source& source, const std::string& fault) {
    throw DdsFault(source.name + ": " + fault + " (" + FormatName(source) + ")");
}

ChannelBits BitsOfMask(const Source& source, std::uint32_t mask) {
    if (mask == 0)
        return {};
    const int shift = std::countr_zero(mask), bits = std::popcount(mask);
    if (static_cast<std::uint64_t>(mask) >> shift != (std::uint64_t{1} << bits) - 1 ||
        static_cast<std::uint32_t>(shift + bits) > source.BitsPerPixel())
        Fail(source, "a channel's mask is not one run of bits inside the pixel");
    return {static_cast<std::uint8_t>(shift), static_cast<std::uint8_t>(bits)};
}

/// Luminance is grey, used for all three colours; pixels with alpha only are black.
DdsFormat MaskedFormat(const Source& source) {
    const std::uint32_t flags = source.Flags(), bits = source.BitsPerPixel();
    if (!(flags & (kRgb | kLuminance | kAlphaOnly | kAlphaPixels)) || bits % 8 != 0 || bits == 0 || bits > 32)
        Fail(source, "the pixel format is not one that is read");
    PixelLayout layout;
    layout.bytes = static_cast<std::uint8_t>(bits / 8);
    for (std::size_t channel = 0; channel < 3; ++channel)
        if (flags & (kRgb | kLuminance))
            layout.channels[channel] = BitsOfMask(source, source.Mask(flags & kRgb ? channel : 0));
    if (flags & (kAlphaPixels | kAlphaOnly))
        layout.channels[3] = BitsOfMask(source, source.Mask(3));
    if (std::ranges::all_of(layout.channels, [](ChannelBits channel) { return channel.bits == 0; }))
        Fail(source, "no channel has a mask");
    return {{}, layout};
}

DdsFormat ReadFormat(const Source& source) {
    if (!source.HasCode())
        return MaskedFormat(source);
    if (source.IsExtended() && !source.HasExtension())
        Fail(source, "the file ends inside its extended header");
    if (source.IsExtended() && source.Word(136) & kExtendedCubeMap)
        Fail(source, "a cube map is no picture");
    const auto format = source.IsExtended() ? DxgiFormat(source.DxgiNumber()) : FourCCFormat(source.Code());
    if (!format)
        Fail(source, "the pixel format is not one that is read");
    return *format;
}

void CheckSize(const DdsHeader& header, const Source& source) {
    const std::string size = std::to_string(header.width) + " x " + std::to_string(header.height) + " pixels";
    if (header.width == 0 || header.height == 0 || header.width > kSizeLimit || header.height > kSizeLimit)
        Fail(source, size + ", each side must be from 1 to " + std::to_string(kSizeLimit));
    const auto most = static_cast<std::uint32_t>(std::bit_width(std::max(header.width, header.height)));
    if (header.levels > most)
        Fail(source, std::to_string(header.levels) + " mip levels, " + size + " have at most " + std::to_string(most));
}

void CheckLength(const DdsHeader& header, const Source& source) {
    std::size_t needed = header.pixelsAt;
    for (std::uint32_t level = 0; level < header.levels; ++level)
        needed += header.BytesOf(level);
    if (source.bytes.size() < needed)
        Fail(source, "the file has " + std::to_string(source.bytes.size()) + " bytes, its header promises " +
                         std::to_string(needed));
}

} // namespace

std::size_t DdsHeader::BytesOf(std::uint32_t level) const {
    const std::size_t across = WidthOf(level), down = HeightOf(level);
    return format.block ? BlockSize(*format.block) * ((across + 3) / 4) * ((down + 3) / 4)
                        : format.plain.bytes * across * down;
}

DdsHeader ReadDdsHeader(std::string_view bytes, const std::string& name) {
    const Source source{bytes, name};
    if (bytes.size() < kHeaderSize || bytes.substr(0, 4) != "DDS " || source.Word(4) != 124 || source.Word(76) != 32)
        throw DdsFault(name + ": not a DDS file, it does not begin with a DDS header of 128 bytes");
    DdsHeader header;
    header.height = source.Word(12);
    header.width = source.Word(16);
    // Writers often leave the flag for the level count unset; 0 means the full size only.
    header.levels = std::max(source.Word(28), 1u);
    CheckSize(header, source);
    if (source.Word(112) & (kCubeMap | kVolume))
        Fail(source, "a cube map or a volume is no picture");
    header.format = ReadFormat(source);
    header.pixelsAt = source.IsExtended() ? kExtendedHeaderSize : kHeaderSize;
    CheckLength(header, source);
    return header;
}

} // namespace Rendering
