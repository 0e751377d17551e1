#pragma once

#include "Rendering/MemBitmap.h"

#include <cairo.h>
#include <cstddef>
#include <string>

namespace Rendering {

/// Copies the pixels of an ARGB32 image surface, which the caller keeps: blue, green, red, alpha, premultiplied.
/// A surface of size 0, as cairo returns for an unreadable file, gives one transparent pixel and a log line.
void FromCairoSurface(MemBitmap& target, cairo_surface_t* surface);

/// Encodes an image of red, green, blue and an ignored fourth byte as an opaque PNG.
std::string ToPng(const MemBitmap& bitmap);
/// A PNG of at most this many bytes, of the same size in pixels: if needed, with fewer colours, then with coarser
/// detail. An image whose plainest form is still larger throws std::runtime_error.
std::string ToPng(const MemBitmap& bitmap, std::size_t mostBytes);

} // namespace Rendering
