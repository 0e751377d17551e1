#pragma once

#include "Rendering/Context.h"
#include "Rendering/MemBitmap.h"

#include <functional>

namespace Rendering {

/// A picture that `draw` makes on a graphics device without a window: red, green, blue, alpha, top row first. The
/// context's target has this size, smooth edges, and is cleared to the background. Throws std::runtime_error where the
/// system has no device to give. Defined by the device library.
MemBitmap DrawOffScreen(Size size, const Utils::Vector4& background, const std::function<void(Context&)>& draw);

/// Samples a pixel.
inline constexpr std::uint32_t kOffScreenSamples = 4;

} // namespace Rendering
