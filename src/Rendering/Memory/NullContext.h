#pragma once

#include "Rendering/Context.h"

namespace Rendering::Memory {

/// Identifies a context's objects, also against those of an earlier context at the same address.
using ContextId = std::uint64_t;

/// A bitmap that stores its pixels; red, green, blue, alpha.
class MemoryBitmap : public GPUBitmap {
public:
    MemoryBitmap(ContextId owner, MemBitmap pixels);
    Rendering::Size Size() const override;

    const ContextId owner;
    MemBitmap pixels;
};

/// A geometry that stores its vertices.
class MemoryGeometry : public Geometry {
public:
    MemoryGeometry(ContextId owner, std::vector<GeometryVertex> vertices);

    const ContextId owner;
    const std::vector<GeometryVertex> vertices;
};

/// A device without output: its objects are in main memory and can be cleared and copied; draws check their arguments
/// like the other devices but change nothing. Everything except the resulting image works with it.
class NullContext : public Context {
public:
    NullContext();

    bool IsGeometryValid(const Geometry* geometry) const override;
    bool IsBitmapValid(const GPUBitmap* bitmap) const override;
    std::unique_ptr<GPUBitmap> CreateBitmapFromCameraImage(const CameraImage& image) override;
    std::unique_ptr<GPUBitmap> CreateRenderTarget(Rendering::Size size, std::uint32_t samples,
                                                  std::uint32_t quality) override;
    std::unique_ptr<GPUBitmap> CreateBitmap(const MemBitmap& bitmap) override;
    std::unique_ptr<GPUBitmap> LoadBitmap(const std::string& path) override;
    std::unique_ptr<SharedGPUBitmap> CreateSharedBitmap(Rendering::Size size) override;
    std::unique_ptr<RenderToTextureLock> BeginRenderToTexture(GPUBitmap& bitmap, bool keepDepth) override;
    void CopyBitmap(GPUBitmap& target, GPUBitmap& source) override;
    void CopyBitmapRegion(GPUBitmap& target, GPUBitmap& source, Rendering::Size origin, Rendering::Size size) override;
    std::unique_ptr<Geometry> CreateGeometry(const std::vector<GeometryVertex>& vertices) override;
    void DrawGeometry(const Utils::Matrix4& world, const Utils::Matrix4& view, const Utils::Matrix4& projection,
                      const Geometry& geometry, const GPUBitmap* bitmap,
                      const std::vector<const GPUBitmap*>* furtherBitmaps, const GeometryDrawParams& params) override;
    std::uint64_t GetModeFlag() const override { return 0; }
    void DrawBitmap(const Utils::Matrix4& view, const Utils::Matrix4& projection, const DrawRectangle& rectangle,
                    GPUBitmap& bitmap, const RectDrawParams& params) override;
    void ClearBitmap(GPUBitmap* bitmap, const Utils::Vector4& colour) override;

private:
    const ContextId id;
};

} // namespace Rendering::Memory
