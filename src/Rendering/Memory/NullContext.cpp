#include "Rendering/Memory/NullContext.h"

#include "Rendering/BitmapFile.h"
#include "Rendering/CopyRegion.h"
#include "Utils/FatalError.h"

#include <algorithm>
#include <atomic>
#include <utility>

namespace Rendering::Memory {

namespace {

/// There is no previous target to restore.
class MemoryRenderToTextureLock : public RenderToTextureLock {
public:
    ~MemoryRenderToTextureLock() override { Restore(); }
    void Restore() override { restored = true; }
};

ContextId NextId() {
    static std::atomic<ContextId> next = 0;
    return next++;
}

std::uint32_t ColourByte(float value) {
    return static_cast<std::uint32_t>(std::clamp(value, 0.0f, 1.0f) * 255.0f + 0.5f);
}

std::uint32_t Packed(const Utils::Vector4& colour) {
    return ColourByte(colour[0]) | ColourByte(colour[1]) << 8 | ColourByte(colour[2]) << 16 |
           ColourByte(colour[3]) << 24;
}

} // namespace

MemoryBitmap::MemoryBitmap(ContextId owner, MemBitmap pixels) : owner(owner), pixels(std::move(pixels)) {}

Rendering::Size MemoryBitmap::Size() const {
    return SizeOf(pixels);
}

MemoryGeometry::MemoryGeometry(ContextId owner, std::vector<GeometryVertex> vertices)
    : owner(owner), vertices(std::move(vertices)) {}

NullContext::NullContext() : id(NextId()) {}

bool NullContext::IsGeometryValid(const Geometry* geometry) const {
    const auto* own = dynamic_cast<const MemoryGeometry*>(geometry);
    return own && own->owner == id;
}

bool NullContext::IsBitmapValid(const GPUBitmap* bitmap) const {
    const auto* own = dynamic_cast<const MemoryBitmap*>(bitmap);
    return own && own->owner == id;
}

std::unique_ptr<GPUBitmap> NullContext::CreateBitmapFromCameraImage(const CameraImage& image) {
    if (!image.IsWhole())
        Utils::FatalError(HERE);
    MemBitmap pixels(image.size.width, image.size.height);
    std::transform(pixels.Pixels().begin(), pixels.Pixels().end(), image.grey.begin(), pixels.Pixels().begin(),
                   [](std::uint32_t, std::uint32_t grey) { return 0xFF000000 | grey << 16 | grey << 8 | grey; });
    return std::make_unique<MemoryBitmap>(id, std::move(pixels));
}

std::unique_ptr<GPUBitmap> NullContext::CreateRenderTarget(Rendering::Size size, std::uint32_t, std::uint32_t) {
    return std::make_unique<MemoryBitmap>(id, MemBitmap(size.width, size.height));
}

std::unique_ptr<GPUBitmap> NullContext::CreateBitmap(const MemBitmap& bitmap) {
    if (bitmap.Width() == 0 || bitmap.Height() == 0)
        return std::make_unique<MemoryBitmap>(id, MemBitmap(1, 1));
    MemBitmap pixels;
    bitmap.CopySwappingRedBlue(pixels);
    return std::make_unique<MemoryBitmap>(id, std::move(pixels));
}

std::unique_ptr<GPUBitmap> NullContext::LoadBitmap(const std::string& path) {
    if (IsDdsPath(path))
        return std::make_unique<MemoryBitmap>(id, std::move(ReadDdsOrFail(path).front()));
    return CreateBitmap(ReadPngFile(path));
}

std::unique_ptr<SharedGPUBitmap> NullContext::CreateSharedBitmap(Rendering::Size) {
    return nullptr;
}

std::unique_ptr<RenderToTextureLock> NullContext::BeginRenderToTexture(GPUBitmap& bitmap, bool) {
    static_cast<void>(dynamic_cast<MemoryBitmap&>(bitmap));
    return std::make_unique<MemoryRenderToTextureLock>();
}

void NullContext::CopyBitmap(GPUBitmap& target, GPUBitmap& source) {
    CopyBitmapRegion(target, source, {0, 0}, source.Size());
}

void NullContext::CopyBitmapRegion(GPUBitmap& target, GPUBitmap& source, Rendering::Size origin, Rendering::Size size) {
    MemBitmap& to = dynamic_cast<MemoryBitmap&>(target).pixels;
    const MemBitmap& from = dynamic_cast<MemoryBitmap&>(source).pixels;
    const Rendering::Size part = CopiedPart(origin, size, source.Size(), target.Size());
    for (std::uint64_t y = 0; y < part.height; ++y)
        for (std::uint64_t x = 0; x < part.width; ++x)
            to.Pixels()[y * to.Width() + x] = from.Pixels()[(origin.height + y) * from.Width() + origin.width + x];
}

std::unique_ptr<Geometry> NullContext::CreateGeometry(const std::vector<GeometryVertex>& vertices) {
    return std::make_unique<MemoryGeometry>(id, vertices);
}

void NullContext::DrawGeometry(const Utils::Matrix4&, const Utils::Matrix4&, const Utils::Matrix4&,
                               const Geometry& geometry, const GPUBitmap* bitmap, const std::vector<const GPUBitmap*>*,
                               const GeometryDrawParams& params) {
    static_cast<void>(dynamic_cast<const MemoryGeometry&>(geometry));
    if (bitmap)
        static_cast<void>(dynamic_cast<const MemoryBitmap&>(*bitmap));
    if (params.matrices.size() >= kMatrixLimit)
        Utils::FatalError(HERE);
    ProgramOf(params);
}

void NullContext::DrawBitmap(const Utils::Matrix4&, const Utils::Matrix4&, const DrawRectangle&, GPUBitmap& bitmap,
                             const RectDrawParams& params) {
    if (!IsBitmapValid(&bitmap))
        Utils::FatalError(HERE);
    ProgramOf(params);
}

void NullContext::ClearBitmap(GPUBitmap* bitmap, const Utils::Vector4& colour) {
    if (bitmap)
        std::ranges::fill(dynamic_cast<MemoryBitmap&>(*bitmap).pixels.Pixels(), Packed(colour));
}

} // namespace Rendering::Memory
