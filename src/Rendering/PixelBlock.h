#pragma once

#include <array>
#include <cstdint>

namespace Rendering {

using Pixel = std::array<std::uint8_t, 4>; ///< red, green, blue, alpha
using PixelBlock = std::array<Pixel, 16>;  ///< 4 x 4, row by row

} // namespace Rendering
