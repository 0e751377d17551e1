#pragma once

#include "Rendering/Context.h"
#include "Rendering/MemBitmap.h"

#include <functional>

namespace Rendering {

/// An image that `draw` renders on a graphics device without a window: red, green, blue, alpha, top row first. The
/// context's target has this size, is multisampled and is cleared to the background. Throws std::runtime_error if the
/// system offers no device. Defined in the device library.
MemBitmap DrawOffScreen(Size size, const Utils::Vector4& background, const std::function<void(Context&)>& draw);

/// Samples per pixel.
inline constexpr std::uint32_t kOffScreenSamples = 4;

} // namespace Rendering
