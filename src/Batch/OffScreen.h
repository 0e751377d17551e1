#pragma once

#include "Rendering/Context.h"
#include "Rendering/MemBitmap.h"

#include <functional>

namespace Batch {

/// An image that `draw` renders on a graphics device without a window: red, green, blue, alpha, top row first. The
/// context's target has this size, is multisampled and is cleared to the canvas's colour. Throws std::runtime_error if
/// the system offers no device.
Rendering::MemBitmap DrawOffScreen(Rendering::Size size, const std::function<void(Rendering::Context&)>& draw);

/// Samples per pixel.
inline constexpr std::uint32_t kSamples = 4;

} // namespace Batch
