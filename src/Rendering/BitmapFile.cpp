#include "Rendering/BitmapFile.h"

#include "Logging/Logger.h"
#include "Rendering/DdsFile.h"
#include "Rendering/Images.h"
#include "Utils/FatalError.h"
#include "Utils/Files.h"
#include "Utils/Text.h"

#include <array>
#include <fstream>
#include <memory>

namespace Rendering {

namespace {

constexpr std::uint64_t kMostPixels = std::uint64_t{1} << 28; ///< a square of side 16,384, the limit of devices

constexpr auto kUnreadable = static_cast<std::int32_t>(0x80004005); ///< E_FAIL, Direct3D's result code

using Surface = std::unique_ptr<cairo_surface_t, decltype(&cairo_surface_destroy)>;

/// Newer cairo versions have special formats for deep PNGs; everything here has 8 bits per channel.
Surface WithEightBits(Surface surface) {
    const cairo_format_t format = cairo_image_surface_get_format(surface.get());
    if (format == CAIRO_FORMAT_ARGB32 || format == CAIRO_FORMAT_RGB24 || format == CAIRO_FORMAT_INVALID)
        return surface;
    Surface plain(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, cairo_image_surface_get_width(surface.get()),
                                             cairo_image_surface_get_height(surface.get())),
                  cairo_surface_destroy);
    cairo_t* painter = cairo_create(plain.get());
    cairo_set_source_surface(painter, surface.get(), 0.0, 0.0);
    cairo_paint(painter);
    cairo_destroy(painter);
    return plain;
}

Surface OpenPng(const std::string& path) {
    Surface surface(cairo_image_surface_create_from_png(path.c_str()), cairo_surface_destroy);
    if (!surface)
        Utils::FatalError(HERE);
    if (const cairo_status_t status = cairo_surface_status(surface.get()); status != CAIRO_STATUS_SUCCESS)
        Logging::Logger::Get().Log(HERE, path + ": " + cairo_status_to_string(status));
    return WithEightBits(std::move(surface));
}

struct StoppableFile {
    std::ifstream stream;
    const std::atomic<bool>& stop;
};

cairo_status_t ReadBytes(void* closure, unsigned char* bytes, unsigned int count) {
    StoppableFile& file = *static_cast<StoppableFile*>(closure);
    const bool complete = !file.stop && file.stream.read(reinterpret_cast<char*>(bytes), count);
    return complete ? CAIRO_STATUS_SUCCESS : CAIRO_STATUS_READ_ERROR;
}

std::optional<MemBitmap> ReadPng(const std::string& path, const std::atomic<bool>& stop) {
    StoppableFile file{Utils::OpenFile(path), stop};
    Surface surface(cairo_image_surface_create_from_png_stream(ReadBytes, &file), cairo_surface_destroy);
    const cairo_status_t status = cairo_surface_status(surface.get());
    if (status != CAIRO_STATUS_SUCCESS && !stop)
        Logging::Logger::Get().Log(HERE, path + ": " + cairo_status_to_string(status));
    if (status != CAIRO_STATUS_SUCCESS)
        return std::nullopt;
    MemBitmap bitmap;
    FromCairoSurface(bitmap, WithEightBits(std::move(surface)).get());
    return bitmap;
}

std::optional<MemBitmap> ReadDds(const std::string& path, const std::atomic<bool>& stop) {
    try {
        MemBitmap bitmap = ReadFullSizeDds(path, stop);
        bitmap.CopySwappingRedBlue(bitmap);
        return bitmap;
    } catch (const DdsFault& fault) {
        Logging::Logger::Get().Log(HERE, fault.what());
        return std::nullopt;
    }
}

/// Number of pixels according to the header of a PNG; 0 if there is no header.
std::uint64_t PromisedPixels(const std::string& path) {
    constexpr std::size_t kWidth = 16, kHeight = 20, kEnd = 24; // big-endian words
    std::array<char, kEnd> header{};
    Utils::OpenFile(path).read(header.data(), kEnd);
    const auto word = [&](std::size_t at) {
        std::uint64_t value = 0;
        for (std::size_t i = at; i < at + 4; ++i)
            value = value << 8 | static_cast<unsigned char>(header[i]);
        return value;
    };
    return word(kWidth) * word(kHeight);
}

/// Reading a pipe can block, and a small file can hold more pixels than fit in memory.
bool MayBeOpened(const std::string& path) {
    return Utils::IsReadableFile(path) && PromisedPixels(path) <= kMostPixels;
}

} // namespace

bool IsDdsPath(const std::string& path) {
    return Utils::ToLowerAscii(path).find(".dds") != std::string::npos;
}

MemBitmap ReadPngFile(const std::string& path) {
    MemBitmap bitmap(1, 1);
    if (MayBeOpened(path))
        FromCairoSurface(bitmap, OpenPng(path).get());
    else
        Logging::Logger::Get().Log(HERE, path + " is not a readable image");
    return bitmap;
}

std::optional<MemBitmap> ReadBitmapFile(const std::string& path, const std::atomic<bool>& stop) {
    if (IsDdsPath(path))
        return ReadDds(path, stop);
    if (MayBeOpened(path))
        return ReadPng(path, stop);
    Logging::Logger::Get().Log(HERE, path + " is not a readable image");
    return std::nullopt;
}

std::vector<MemBitmap> ReadDdsOrFail(const std::string& path) {
    try {
        return ReadDdsFile(path);
    } catch (const DdsFault& fault) {
        Logging::Logger::Get().Log(HERE, fault.what());
    }
    Utils::FatalError(HERE, kUnreadable);
}

} // namespace Rendering
