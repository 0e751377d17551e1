#include "Rendering/Images.h"

#include "Logging/Logger.h"
#include "Utils/FatalError.h"

#include <cstring>
#include <memory>
#include <stdexcept>

namespace Rendering {

namespace {

/// Fixed source path of these log lines.
constexpr const char* kPlace = "Utils\\Images.cpp";

constexpr int kFewestBits = 3;          // of a channel, before the detail gets coarser
constexpr std::uint64_t kCoarsest = 16; // pixels that become one, along a side

/// Keeps the given number of bits of each channel and spreads the values over the whole range again.
std::uint32_t WithBits(std::uint32_t pixel, int bits) {
    const std::uint32_t most = (1u << bits) - 1;
    std::uint32_t kept = 0;
    for (int shift = 0; shift < 24; shift += 8) {
        const std::uint32_t value = pixel >> shift & 255;
        kept |= (value * most + 127) / 255 * 255 / most << shift;
    }
    return kept;
}

/// Squares with sides of `field` pixels get the colour of their corner; each channel gets `bits` bits.
MemBitmap Simplified(const MemBitmap& bitmap, int bits, std::uint64_t field) {
    MemBitmap simple(bitmap.Width(), bitmap.Height());
    for (std::uint64_t y = 0; y < bitmap.Height(); ++y)
        for (std::uint64_t x = 0; x < bitmap.Width(); ++x)
            simple.Pixels()[y * bitmap.Width() + x] =
                WithBits(bitmap.Pixels()[(y - y % field) * bitmap.Width() + (x - x % field)], bits);
    return simple;
}

} // namespace

void FromCairoSurface(MemBitmap& target, cairo_surface_t* surface) {
    cairo_surface_flush(surface);
    const int width = cairo_image_surface_get_width(surface);
    const int height = cairo_image_surface_get_height(surface);
    if (width == 0 || height == 0) {
        Logging::Logger::Get().Log(kPlace, __LINE__, "Invalid Bitmap from Cairo");
        target.Resize(1, 1);
        return;
    }
    target.Resize(static_cast<std::uint64_t>(width), static_cast<std::uint64_t>(height));
    const int stride = cairo_image_surface_get_stride(surface);
    if (stride < 4 * width)
        Utils::FatalError(kPlace, __LINE__);
    const unsigned char* data = cairo_image_surface_get_data(surface);
    if (!data)
        Utils::FatalError(kPlace, __LINE__);
    const std::size_t rowSize = 4 * static_cast<std::size_t>(width);
    for (int y = 0; y < height; ++y)
        std::memcpy(target.Pixels().data() + static_cast<std::size_t>(y) * width,
                    data + static_cast<std::size_t>(y) * stride, rowSize);
}

std::string ToPng(const MemBitmap& bitmap) {
    MemBitmap pixels;
    bitmap.CopySwappingRedBlue(pixels);
    const int width = static_cast<int>(pixels.Width()), height = static_cast<int>(pixels.Height());
    const std::unique_ptr<cairo_surface_t, void (*)(cairo_surface_t*)> surface(
        cairo_image_surface_create_for_data(reinterpret_cast<unsigned char*>(pixels.Pixels().data()),
                                            CAIRO_FORMAT_RGB24, width, height, 4 * width),
        cairo_surface_destroy);
    std::string png;
    const auto append = [](void* file, const unsigned char* bytes, unsigned int count) {
        static_cast<std::string*>(file)->append(reinterpret_cast<const char*>(bytes), count);
        return CAIRO_STATUS_SUCCESS;
    };
    if (const auto status = cairo_surface_write_to_png_stream(surface.get(), append, &png))
        throw std::runtime_error(std::string("the picture cannot be made into a PNG: ") +
                                 cairo_status_to_string(status));
    return png;
}

std::string ToPng(const MemBitmap& bitmap, std::size_t mostBytes) {
    std::string png = ToPng(bitmap);
    for (int bits = 6; png.size() > mostBytes && bits >= kFewestBits; --bits)
        png = ToPng(Simplified(bitmap, bits, 1));
    for (std::uint64_t field = 2; png.size() > mostBytes && field <= kCoarsest; field *= 2)
        png = ToPng(Simplified(bitmap, kFewestBits, field));
    if (png.size() > mostBytes)
        throw std::runtime_error("the picture cannot be made into a PNG of " + std::to_string(mostBytes) + " bytes");
    return png;
}

} // namespace Rendering
