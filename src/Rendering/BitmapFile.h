#pragma once

#include "Rendering/MemBitmap.h"

#include <atomic>
#include <optional>
#include <string>
#include <vector>

/// Reads image files into main memory, for LoadBitmap of every device.
namespace Rendering {

/// True for a path that contains ".dds" in any case. All others are read as PNG.
bool IsDdsPath(const std::string& path);

/// The pixels in cairo's format, as for CreateBitmap: blue, green, red, alpha, premultiplied, top row first. An
/// unreadable file gives one transparent pixel and a log line.
MemBitmap ReadPngFile(const std::string& path);

/// Either kind of file at its full size, in the format of ReadPngFile; a DDS file's colours are not converted. Empty,
/// with a log line, if the file is unreadable. If `stop` becomes true, returns within milliseconds. Any thread.
std::optional<MemBitmap> ReadBitmapFile(const std::string& path, const std::atomic<bool>& stop);

/// The full size and the mip levels in the file: red, green, blue, alpha, unconverted, top row first. An unreadable
/// file is a fatal error with the reason in the log.
std::vector<MemBitmap> ReadDdsOrFail(const std::string& path);

} // namespace Rendering
