#pragma once

#include "Rendering/MemBitmap.h"

#include <string>
#include <vector>

/// Image files in main memory, for every device's LoadBitmap.
namespace Rendering {

/// True for a path that holds ".dds" in any case. Every other path is read as PNG.
bool IsDdsPath(const std::string& path);

/// The pixels as cairo gives them and CreateBitmap takes them: blue, green, red, alpha, premultiplied, top row first. A
/// file that cannot be read gives one transparent pixel and a log line.
MemBitmap ReadPngFile(const std::string& path);

/// The full size and the mip levels that the file has: red, green, blue, alpha, as they are in the file, top row first.
/// A file that cannot be read is a fatal error with its fault in the log.
std::vector<MemBitmap> ReadDdsOrFail(const std::string& path);

} // namespace Rendering
