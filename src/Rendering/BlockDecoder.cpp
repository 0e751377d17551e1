#include "Rendering/BlockDecoder.h"

#include "Rendering/Bc7Decoder.h"
#include "Rendering/LittleEndian.h"

#include <algorithm>

namespace Rendering {

namespace {

/// Five, six and five bits; the upper bits fill the lower ones, so that the largest value becomes 255.
Pixel ExpandColour(std::uint64_t colour) {
    const std::uint64_t red = colour >> 11, green = colour >> 5 & 63, blue = colour & 31;
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

/// The eight bytes of a colour block. In BC1 the fourth colour is transparent unless the first is the larger one.
void DecodeColours(std::string_view bytes, bool mayBeTransparent, PixelBlock& block) {
    const std::uint64_t first = LittleEndian(bytes, 0, 2), second = LittleEndian(bytes, 2, 2);
    const Pixel a = ExpandColour(first), b = ExpandColour(second);
    std::array<Pixel, 4> palette = {a, b, MixColours(a, 2, b, 1), MixColours(a, 1, b, 2)};
    if (mayBeTransparent && first <= second) {
        palette[2] = MixColours(a, 1, b, 1);
        palette[3] = {0, 0, 0, 0};
    }
    std::uint64_t choices = LittleEndian(bytes, 4, 4);
    for (Pixel& pixel : block) {
        pixel = palette[choices & 3];
        choices >>= 2;
    }
}

/// Two pixels per byte, the first in the lower half.
void DecodeFourBitAlpha(std::string_view bytes, PixelBlock& block) {
    for (std::size_t i = 0; i < block.size(); ++i) {
        const int alpha = static_cast<std::uint8_t>(bytes[i / 2]) >> 4 * (i % 2) & 15;
        block[i][3] = static_cast<std::uint8_t>(alpha * 17);
    }
}

using Palette = std::array<std::uint8_t, 8>;

/// If the first value is the larger one, six interpolated values follow, otherwise four and the least and the greatest
/// value. `most` is the value for 255.
Palette InterpolatedPalette(int a, int b, int most) {
    const int steps = a > b ? 7 : 5;
    const auto byte = [&](int sum) {
        const int whole = steps * most;
        return static_cast<std::uint8_t>((std::max(sum, 0) * 255 + whole / 2) / whole);
    };
    a = std::max(a, -most); // -128 means -127
    b = std::max(b, -most);
    Palette palette = {byte(a * steps), byte(b * steps), 0, 0, 0, 0, 0, 255};
    for (int i = 1; i < steps; ++i)
        palette[static_cast<std::size_t>(i) + 1] = byte(a * (steps - i) + b * i);
    return palette;
}

/// One channel: two values of one byte, then a three-bit index per pixel into them and the values between.
void DecodeInterpolated(std::string_view bytes, bool isSigned, std::size_t channel, PixelBlock& block) {
    const auto value = [&](std::size_t at) {
        const auto byte = static_cast<std::uint8_t>(bytes[at]);
        return isSigned ? static_cast<std::int8_t>(byte) : int{byte};
    };
    const Palette palette = InterpolatedPalette(value(0), value(1), isSigned ? 127 : 255);
    std::uint64_t choices = LittleEndian(bytes, 2, 6);
    for (Pixel& pixel : block) {
        pixel[channel] = palette[choices & 7];
        choices >>= 3;
    }
}

void DecodeOneOrTwoChannels(std::string_view bytes, bool isSigned, PixelBlock& block) {
    block.fill({0, 0, 0, 255});
    for (std::size_t channel = 0; channel < bytes.size() / 8; ++channel)
        DecodeInterpolated(bytes.substr(8 * channel), isSigned, channel, block);
}

} // namespace

std::size_t BlockSize(BlockCode code) {
    return code == BlockCode::Bc1 || code == BlockCode::Bc4 || code == BlockCode::Bc4Signed ? 8 : 16;
}

void DecodeBlock(std::string_view bytes, BlockCode code, PixelBlock& block) {
    switch (code) {
    case BlockCode::Bc1:
        return DecodeColours(bytes, true, block);
    case BlockCode::Bc2:
        DecodeColours(bytes.substr(8), false, block);
        return DecodeFourBitAlpha(bytes, block);
    case BlockCode::Bc3:
        DecodeColours(bytes.substr(8), false, block);
        return DecodeInterpolated(bytes, false, 3, block);
    case BlockCode::Bc4:
    case BlockCode::Bc5:
        return DecodeOneOrTwoChannels(bytes, false, block);
    case BlockCode::Bc4Signed:
    case BlockCode::Bc5Signed:
        return DecodeOneOrTwoChannels(bytes, true, block);
    case BlockCode::Bc7:
        return DecodeBc7(bytes, block);
    }
}

} // namespace Rendering
