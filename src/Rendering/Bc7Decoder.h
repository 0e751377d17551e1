#pragma once

#include "Rendering/PixelBlock.h"

#include <string_view>

namespace Rendering {

/// Decodes the 16 bytes of a BC7 block. A block of the reserved mode becomes transparent black.
void DecodeBc7(std::string_view bytes, PixelBlock& block);

} // namespace Rendering
