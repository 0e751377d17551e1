#pragma once

#include "Rendering/Stage.h"

#include <functional>
#include <memory>

namespace Annotator {

/// Draws a small picture in the upper left corner of the view, over everything before it. User interface thread.
class CornerPicture : public Rendering::Stage {
public:
    /// `viewSize` returns the size of the frames' target in pixels; one of zero pixels draws nothing.
    explicit CornerPicture(std::function<Rendering::Size()> viewSize) : viewSize(std::move(viewSize)) {}

    /// Shows an opaque picture, one pixel per pixel of the target: blue, green, red, alpha. A picture without pixels
    /// shows nothing.
    void Show(Rendering::MemBitmap newPicture);
    void Render(Rendering::Context& context, const Utils::Matrix4& view, const Utils::Matrix4& projection) override;
    /// Releases the device's object; its context must be current.
    void ReleaseGpuResources() { bitmap.reset(); }

private:
    void Update(Rendering::Context& context);

    std::function<Rendering::Size()> viewSize;
    Rendering::MemBitmap picture;
    bool changed = false; ///< `bitmap` is older than the picture
    std::unique_ptr<Rendering::GPUBitmap> bitmap;
};

} // namespace Annotator
