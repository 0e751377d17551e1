#pragma once

#include "Rendering/DrawParams.h"
#include "Rendering/GeometryVertex.h"
#include "Rendering/MemBitmap.h"
#include "Utils/LinearAlgebra.h"
#include "Utils/NonAssignable.h"

#include <cstddef>
#include <cstdint>
#include <exception>
#include <functional>
#include <memory>
#include <mutex>
#include <span>
#include <string>
#include <vector>

namespace Rendering {

struct Size {
    std::uint32_t width = 0, height = 0; ///< pixels
    bool operator==(const Size&) const = default;
    std::size_t Area() const { return std::size_t{width} * height; }
};

inline Size SizeOf(const MemBitmap& bitmap) {
    return {static_cast<std::uint32_t>(bitmap.Width()), static_cast<std::uint32_t>(bitmap.Height())};
}

/// A texture on a device, owned by the caller that created it. It must not be used after its context is destroyed.
class GPUBitmap : public Utils::NonAssignable {
public:
    virtual ~GPUBitmap() = default;
    virtual Rendering::Size Size() const = 0;
};

/// A triangle list on a device, owned by the caller that created it.
class Geometry : public Utils::NonAssignable {
public:
    virtual ~Geometry() = default;
};

/// A scope in which drawing goes to a bitmap. An implementation's destructor restores the previous target if that was
/// not done.
class RenderToTextureLock : public Utils::NonAssignable {
public:
    virtual void Restore() = 0;
    /// A target that was not restored is a fatal error, or a log line during stack unwinding.
    virtual ~RenderToTextureLock() noexcept(false);

protected:
    bool restored = false;

private:
    const int exceptionsBefore = std::uncaught_exceptions();
};

/// A bitmap that other processes can open.
class SharedGPUBitmap : public Utils::NonAssignable {
public:
    virtual ~SharedGPUBitmap() = default;
    virtual std::unique_ptr<GPUBitmap>& Bitmap() = 0;
    virtual void* SharedHandle() const = 0;
};

/// A camera's raw image with its distortion map, for CreateBitmapFromCameraImage.
struct CameraImage {
    Rendering::Size size;
    std::span<const std::uint8_t> grey; ///< one byte per pixel, row by row
    Rendering::Size distortionSize;     ///< in texels of two floats
    std::span<const float> distortion;

    /// Whether neither size is 0 and the numbers of pixels and texels match the sizes. A device rejects other images.
    bool IsWhole() const;
};

/// Interface of the graphics devices. Clip space is left-handed with depth from 0 (near) to 1; no faces are culled. A
/// bitmap's row 0 is its image's top row; texture coordinates have v = 0 at the bottom of the image, as in X-Plane, and
/// each device flips what it must. All operations except DeferRelease belong to the rendering thread. A failing device
/// call is a fatal error, and so is drawing with a multisampled bitmap, which must be resolved by a copy. Shared
/// bitmaps, camera images and the draw queue are not used by the programs here; they are kept on purpose
/// and covered by tests.
class Context : public Utils::NonAssignable {
public:
    virtual ~Context() = default;

    /// True if this context created the object; false for null and for objects of another device.
    virtual bool IsGeometryValid(const Geometry* geometry) const = 0;
    virtual bool IsBitmapValid(const GPUBitmap* bitmap) const = 0;
    virtual std::unique_ptr<GPUBitmap> CreateBitmapFromCameraImage(const CameraImage& image) = 0;
    virtual std::unique_ptr<GPUBitmap> CreateRenderTarget(Size size, std::uint32_t samples, std::uint32_t quality) = 0;
    /// The bitmap's bytes are in cairo's order: blue, green, red, alpha.
    virtual std::unique_ptr<GPUBitmap> CreateBitmap(const MemBitmap& bitmap) = 0;
    /// A path that contains ".dds" in any case is read as DDS, all others as PNG, whose colours stay premultiplied. An
    /// unreadable PNG gives one transparent pixel, an unreadable DDS is a fatal error.
    virtual std::unique_ptr<GPUBitmap> LoadBitmap(const std::string& path) = 0;
    virtual std::unique_ptr<SharedGPUBitmap> CreateSharedBitmap(Size size) = 0; ///< null on failure
    virtual std::unique_ptr<RenderToTextureLock> BeginRenderToTexture(GPUBitmap& bitmap, bool keepDepth) = 0;
    virtual void CopyBitmap(GPUBitmap& target, GPUBitmap& source) = 0; ///< resolves a multisampled source
    /// To the target's top left, clipped to source and target.
    virtual void CopyBitmapRegion(GPUBitmap& target, GPUBitmap& source, Size origin, Size size) = 0;
    /// The list must not be empty.
    virtual std::unique_ptr<Geometry> CreateGeometry(const std::vector<GeometryVertex>& vertices) = 0;
    virtual void DrawGeometry(const Utils::Matrix4& world, const Utils::Matrix4& view, const Utils::Matrix4& projection,
                              const Geometry& geometry, const GPUBitmap* bitmap,
                              const std::vector<const GPUBitmap*>* furtherBitmaps,
                              const GeometryDrawParams& params) = 0;
    virtual std::uint64_t GetModeFlag() const = 0; ///< as given at construction
    virtual void DrawBitmap(const Utils::Matrix4& view, const Utils::Matrix4& projection,
                            const DrawRectangle& rectangle, GPUBitmap& bitmap, const RectDrawParams& params) = 0;

    /// Takes an object of the device from any thread; the rendering thread releases it in ReleaseDeferred.
    virtual void DeferRelease(std::shared_ptr<void> object);
    virtual void ReleaseDeferred();

    using QueuedDraw = std::function<void(Context&, const Utils::Matrix4& view, void* argument)>;
    /// Defers a draw until FlushDrawQueue, which calls the farthest from the viewer first (so that blended draws cover
    /// what is behind them) and empties the queue. `position` is in world space; draws with `last` set come after all
    /// others.
    virtual void QueueDraw(const Utils::Vector3& position, bool last, QueuedDraw draw);
    virtual void FlushDrawQueue(const Utils::Matrix4& view, void* argument);

    virtual void GenerateMips(GPUBitmap* bitmap);
    virtual void ClearBitmap(GPUBitmap* bitmap, const Utils::Vector4& colour);

private:
    struct QueueEntry {
        Utils::Vector3 position = Utils::Vector3::Zero(); ///< world space; view space during the flush
        bool last = false;
        QueuedDraw draw;
    };

    std::mutex mutex; ///< guards releaseList
    std::vector<std::shared_ptr<void>> releaseList;
    std::vector<QueueEntry> drawQueue;
};

} // namespace Rendering
