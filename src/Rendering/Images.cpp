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

} // namespace Rendering
