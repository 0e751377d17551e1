#pragma once

#include "Rendering/MemBitmap.h"

#include <cairo.h>
#include <string>

namespace Rendering {

/// Copies the pixels of an ARGB32 image surface, which stays the caller's: blue, green, red, alpha, premultiplied.
/// A surface without a size, as cairo gives for a file it cannot read, makes one transparent pixel and a log line.
void FromCairoSurface(MemBitmap& target, cairo_surface_t* surface);

/// The PNG file of a picture in red, green, blue and whatever; all of it opaque.
std::string ToPng(const MemBitmap& bitmap);

} // namespace Rendering
