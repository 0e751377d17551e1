#pragma once

#include "Rendering/MemBitmap.h"

#include <cairo.h>
#include <string>

namespace Rendering {

/// Copies the pixels of an ARGB32 image surface, which the caller keeps: blue, green, red, alpha, premultiplied.
/// A surface of size 0, as cairo returns for an unreadable file, gives one transparent pixel and a log line.
void FromCairoSurface(MemBitmap& target, cairo_surface_t* surface);

/// Encodes an image of red, green, blue and an ignored fourth byte as an opaque PNG.
std::string ToPng(const MemBitmap& bitmap);

} // namespace Rendering
