#pragma once

#include "Rendering/Context.h"
#include "Rendering/MemBitmap.h"

#include <functional>

namespace Batch {

/// A picture that `draw` makes on a graphics device without a window: red, green, blue, alpha, top row first. The
/// context's target has this size, smooth edges, and is cleared to the canvas's colour. Throws std::runtime_error where
/// the system has no device to give.
Rendering::MemBitmap DrawOffScreen(Rendering::Size size, const std::function<void(Rendering::Context&)>& draw);

/// Samples a pixel.
inline constexpr std::uint32_t kSamples = 4;

} // namespace Batch
