#pragma once

#include "Rendering/PixelBlock.h"

#include <cstddef>
#include <string_view>

namespace Rendering {

/// The compressions whose unit is a block of 4 x 4 pixels, by Direct3D's names.
enum class BlockCode { Bc1, Bc2, Bc3, Bc4, Bc4Signed, Bc5, Bc5Signed, Bc7 };

/// Bytes of one block.
std::size_t BlockSize(BlockCode code);

/// Decodes one block of BlockSize bytes, any bytes at all. BC4 gives red, BC5 red and green, the other colours are 0;
/// negative values of the signed ones become 0.
void DecodeBlock(std::string_view bytes, BlockCode code, PixelBlock& block);

} // namespace Rendering
