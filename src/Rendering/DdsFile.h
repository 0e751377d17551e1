#pragma once

#include "Rendering/MemBitmap.h"

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace Rendering {

/// What is wrong with a DDS file, in words that begin with its name.
class DdsFault : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// Reads a texture in the DDS format: BC1, BC2, BC3 or plain 32-bit pixels, one picture with its mip levels. Gives the
/// levels from the full size down to where the file ends them: red, green, blue, alpha, not premultiplied. X-Plane's
/// DDS files store the picture from the bottom row upwards; the levels have the top row first, as all bitmaps here.
/// Whatever the bytes are, the memory taken is at most eight times their number. Throws DdsFault.
std::vector<MemBitmap> DecodeDds(std::string_view bytes, const std::string& name);
std::vector<MemBitmap> ReadDdsFile(const std::string& path);

} // namespace Rendering
