#pragma once

#include "Rendering/PixelBlock.h"

#include <cstddef>
#include <string_view>

namespace Rendering {

/// Compressions in blocks of 4 x 4 pixels, with Direct3D's names.
enum class BlockCode { Bc1, Bc2, Bc3, Bc4, Bc4Signed, Bc5, Bc5Signed, Bc7 };

/// Bytes per block.
std::size_t BlockSize(BlockCode code);

/// Decodes one block of BlockSize bytes; any bytes are valid. BC4 gives red, BC5 red and green, the other colours are
/// 0; negative values of signed formats become 0.
void DecodeBlock(std::string_view bytes, BlockCode code, PixelBlock& block);

} // namespace Rendering
