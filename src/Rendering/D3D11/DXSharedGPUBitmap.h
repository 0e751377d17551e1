#pragma once

#include "Rendering/Context.h"

#include <utility>

namespace Rendering {

/// A bitmap that other processes open by its handle.
class DXSharedGPUBitmap : public SharedGPUBitmap {
public:
    DXSharedGPUBitmap(std::unique_ptr<GPUBitmap> bitmap, void* handle) : bitmap(std::move(bitmap)), handle(handle) {}

    std::unique_ptr<GPUBitmap>& Bitmap() override { return bitmap; }
    void* SharedHandle() const override { return handle; }

private:
    std::unique_ptr<GPUBitmap> bitmap;
    void* handle;
};

} // namespace Rendering
