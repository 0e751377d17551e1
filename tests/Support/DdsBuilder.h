#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

namespace Support {

/// Builds a DDS file: a header whose fields can be changed one by one, followed by the bytes of the pixels.
class DdsBuilder {
public:
    DdsBuilder(std::uint32_t width, std::uint32_t height) : bytes(128, '\0') {
        bytes.replace(0, 4, "DDS ");
        Word(4, 124).Word(12, height).Word(16, width).Word(28, 1).Word(76, 32);
    }

    /// Sets the little-endian word at a byte offset of the header.
    DdsBuilder& Word(std::size_t at, std::uint32_t value) {
        for (std::size_t i = 0; i < 4; ++i)
            bytes[at + i] = static_cast<char>(value >> 8 * i);
        return *this;
    }
    DdsBuilder& Code(std::string_view fourCC) {
        Word(80, 4);
        bytes.replace(84, 4, fourCC);
        return *this;
    }
    /// The header's DX10 part: a DXGI format and a two-dimensional image.
    DdsBuilder& Extended(std::uint32_t format) {
        Code("DX10");
        bytes.resize(148, '\0');
        return Word(128, format).Word(132, 3).Word(140, 1);
    }
    /// Uncompressed pixels with the channels' masks. Without a mask for alpha, the flag for alpha is not set.
    DdsBuilder& Plain(std::uint32_t red, std::uint32_t green, std::uint32_t blue, std::uint32_t alpha,
                      std::uint32_t bits = 32) {
        Word(80, alpha ? 0x41 : 0x40).Word(88, bits);
        return Word(92, red).Word(96, green).Word(100, blue).Word(104, alpha);
    }
    DdsBuilder& Pixels(std::initializer_list<int> values) {
        for (const int value : values)
            bytes.push_back(static_cast<char>(value));
        return *this;
    }

    std::string bytes;
};

} // namespace Support
