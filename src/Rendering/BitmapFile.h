#pragma once

#include "Rendering/MemBitmap.h"

#include <string>
#include <vector>

namespace Rendering {

/// Reads a picture file into main memory, for every device's LoadBitmap: its full size and, where the file has them,
/// its mip levels behind. Red, green, blue, alpha, not premultiplied, top row first. A path that holds ".dds" in any
/// case is read as DDS, every other one as PNG. A PNG that cannot be read gives one transparent pixel and a log line;
/// a DDS that cannot be read is a fatal error with its fault in the log.
std::vector<MemBitmap> ReadBitmapFile(const std::string& path);

} // namespace Rendering
