#pragma once

#include "Rendering/Context.h"
#include "Rendering/MemBitmap.h"
#include "Utils/NonAssignable.h"

#include <functional>
#include <memory>

namespace Rendering {

/// A graphics device without a window, which draws images of one size, one after the other. Defined in the device
/// library.
class OffScreen : public Utils::NonAssignable {
public:
    /// Throws std::runtime_error if the system offers no device.
    explicit OffScreen(Size size);
    ~OffScreen();

    /// What `draw` renders: red, green, blue, alpha, top row first. The context is the same each time; its target is
    /// multisampled and is cleared to the background. Objects of the context must be released before this one.
    MemBitmap Draw(const Utils::Vector4& background, const std::function<void(Context&)>& draw);

private:
    struct Device;
    std::unique_ptr<Device> device;
};

/// A single such image.
inline MemBitmap DrawOffScreen(Size size, const Utils::Vector4& background, const std::function<void(Context&)>& draw) {
    return OffScreen(size).Draw(background, draw);
}

/// Samples per pixel.
inline constexpr std::uint32_t kOffScreenSamples = 4;

} // namespace Rendering
