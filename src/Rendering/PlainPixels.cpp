#include "Rendering/PlainPixels.h"

#include "Rendering/LittleEndian.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>

namespace Rendering {

namespace {

/// Scales values of any number of bits so that the largest becomes 255; rounded to the nearest.
std::uint8_t ToByte(std::uint64_t pixel, ChannelBits channel) {
    const std::uint64_t most = (std::uint64_t{1} << channel.bits) - 1, value = pixel >> channel.shift & most;
    return static_cast<std::uint8_t>(channel.bits == 8 ? value : (value * 255 + most / 2) / most);
}

float FromHalf(std::uint64_t half) {
    constexpr int kBias = 15, kSpecial = 31; // exponents; the special one means infinity or NaN
    const int exponent = static_cast<int>(half >> 10 & 31);
    const float fraction = static_cast<float>(half & 1023) / 1024.0f;
    float magnitude = std::ldexp(exponent == 0 ? fraction : 1.0f + fraction, std::max(exponent, 1) - kBias);
    if (exponent == kSpecial && fraction != 0.0f)
        magnitude = std::numeric_limits<float>::quiet_NaN();
    return half & 0x8000 ? -magnitude : magnitude;
}

std::uint8_t FloatToByte(std::string_view bytes, ChannelBits channel) {
    const std::uint64_t bits = LittleEndian(bytes, channel.shift / 8, channel.bits / 8);
    const float value = channel.bits == 16 ? FromHalf(bits) : std::bit_cast<float>(static_cast<std::uint32_t>(bits));
    return value > 0.0f ? static_cast<std::uint8_t>(std::lround(std::min(value, 1.0f) * 255.0f)) : 0; // NaN: 0
}

} // namespace

Pixel DecodePixel(std::string_view bytes, const PixelLayout& layout) {
    const std::uint64_t number = layout.areFloats ? 0 : LittleEndian(bytes, 0, layout.bytes);
    Pixel pixel = {0, 0, 0, 255};
    for (std::size_t i = 0; i < pixel.size(); ++i)
        if (const ChannelBits channel = layout.channels[i]; channel.bits != 0)
            pixel[i] = layout.areFloats ? FloatToByte(bytes, channel) : ToByte(number, channel);
    return pixel;
}

} // namespace Rendering
