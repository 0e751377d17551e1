#pragma once

#include "Rendering/MemBitmap.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

/// Small images as text, so that a test shows what it draws and what it expects: one line per row from the top, one
/// letter per pixel.
namespace Support {

struct NamedColour {
    char letter;
    std::array<std::uint8_t, 3> colour; ///< red, green, blue
};

inline constexpr NamedColour kNamedColours[] = {
    {'.', {0, 0, 0}},     {'W', {255, 255, 255}}, {'R', {255, 0, 0}},   {'G', {0, 255, 0}},     {'B', {0, 0, 255}},
    {'Y', {255, 255, 0}}, {'C', {0, 255, 255}},   {'M', {255, 0, 255}}, {'g', {128, 128, 128}},
};

/// The text of an image of red, green, blue, alpha pixels, without its alpha. A colour without a letter (tolerance 2)
/// is written in hexadecimal. With a `field` above 1, each letter is the colour in the middle of a square with sides of
/// that many pixels.
inline std::string Picture(const Rendering::MemBitmap& bitmap, std::uint64_t field = 1) {
    const auto letterOf = [](std::uint32_t pixel) -> std::string {
        for (const auto& [letter, colour] : kNamedColours) {
            bool same = true;
            for (int channel = 0; channel < 3; ++channel)
                same = same && std::abs(static_cast<int>(pixel >> 8 * channel & 255) - colour[channel]) <= 2;
            if (same)
                return std::string(1, letter);
        }
        char text[16];
        std::snprintf(text, sizeof(text), "<%02X%02X%02X>", pixel & 255, pixel >> 8 & 255, pixel >> 16 & 255);
        return text;
    };
    std::string text;
    for (std::uint64_t y = field / 2; y < bitmap.Height(); y += field) {
        for (std::uint64_t x = field / 2; x < bitmap.Width(); x += field)
            text += letterOf(bitmap.Pixels()[y * bitmap.Width() + x]);
        text += '\n';
    }
    return text;
}

/// The bitmap of such a text, for CreateBitmap: blue, green, red and one alpha for all pixels.
inline Rendering::MemBitmap Bitmap(std::string_view picture, std::uint64_t field = 1, std::uint8_t alpha = 255) {
    const std::size_t columns = picture.find('\n');
    Rendering::MemBitmap bitmap(field * columns, field * picture.size() / (columns + 1));
    for (std::uint64_t y = 0; y < bitmap.Height(); ++y)
        for (std::uint64_t x = 0; x < bitmap.Width(); ++x)
            for (const auto& [letter, colour] : kNamedColours)
                if (letter == picture[y / field * (columns + 1) + x / field])
                    bitmap.SetPixel(x, y, colour[2], colour[1], colour[0], alpha);
    return bitmap;
}

} // namespace Support
