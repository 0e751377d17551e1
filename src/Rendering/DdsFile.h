#pragma once

#include "Rendering/DdsHeader.h"
#include "Rendering/MemBitmap.h"

#include <vector>

namespace Rendering {

/// Reads a texture in the DDS format: BC1 to BC5, BC7, or plain pixels of any masks, one image with its mip levels.
/// Gives the levels from the full size down to where the file ends them: red, green, blue, alpha, with colours as the
/// file has them, which only DXT2 and DXT4 multiply by alpha. X-Plane's DDS files store the image from the bottom row
/// upwards; the levels have the top row first, as all bitmaps here. Whatever the bytes are, the memory taken is at most
/// eight times their number. Throws DdsFault.
std::vector<MemBitmap> DecodeDds(std::string_view bytes, const std::string& name);
std::vector<MemBitmap> ReadDdsFile(const std::string& path);

} // namespace Rendering
