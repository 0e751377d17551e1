#include "Utils/Images.h"

#include "Logging/Logger.h"
#include "Utils/Asserts.h"

#include <cstring>

namespace Utils {

void FromCairoSurface(Rendering::MemBitmap& target, cairo_surface_t* surface) {
    cairo_surface_flush(surface);
    const int width = cairo_image_surface_get_width(surface);
    const int height = cairo_image_surface_get_height(surface);
    if (width == 0 || height == 0) {
        Logging::Logger::Get().Log(HERE, "Invalid Bitmap from Cairo");
        target.Resize(1, 1);
        return;
    }
    target.Resize(static_cast<std::uint64_t>(width), static_cast<std::uint64_t>(height));
    const int stride = cairo_image_surface_get_stride(surface);
    if (stride < 4 * width)
        FatalError(HERE);
    const unsigned char* data = cairo_image_surface_get_data(surface);
    if (!data)
        FatalError(HERE);
    const std::size_t rowSize = 4 * static_cast<std::size_t>(width);
    for (int y = 0; y < height; ++y)
        std::memcpy(target.Pixels().data() + static_cast<std::size_t>(y) * width,
                    data + static_cast<std::size_t>(y) * stride, rowSize);
}

} // namespace Utils
