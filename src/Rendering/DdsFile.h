#pragma once

#include "Rendering/DdsHeader.h"
#include "Rendering/MemBitmap.h"

#include <atomic>
#include <vector>

namespace Rendering {

/// Reads a texture in the DDS format: BC1 to BC5, BC7, or uncompressed pixels with any masks, one image with its mip
/// levels. Returns the file's levels from the full size down: red, green, blue, alpha, with unconverted colours, which
/// are premultiplied by alpha only in DXT2 and DXT4. X-Plane's DDS files store the image from the bottom row upwards;
/// the levels have the top row first, like all bitmaps here. Uses at most eight times the file's size in memory, for
/// any content. Throws DdsFault.
std::vector<MemBitmap> DecodeDds(std::string_view bytes, const std::string& name);
std::vector<MemBitmap> ReadDdsFile(const std::string& path);
/// Only the full size. If `stop` becomes true, returns within milliseconds with a part of the image.
MemBitmap ReadFullSizeDds(const std::string& path, const std::atomic<bool>& stop);

} // namespace Rendering
