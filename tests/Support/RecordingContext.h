#pragma once

#include "Rendering/Memory/NullContext.h"

#include <functional>
#include <string>
#include <vector>

namespace Support {

struct DrawCall {
    Utils::Matrix4 world = Utils::Matrix4::Identity();
    Utils::Matrix4 view = Utils::Matrix4::Identity();
    Utils::Matrix4 projection = Utils::Matrix4::Identity();
    const Rendering::Geometry* geometry = nullptr;
    const Rendering::GPUBitmap* bitmap = nullptr;
    bool hasFurtherBitmaps = false;
    Rendering::GeometryDrawParams params;
};

/// A device that records each draw call and the path of each loaded bitmap; it does not read bitmap files.
class RecordingContext : public Rendering::Memory::NullContext {
public:
    std::unique_ptr<Rendering::GPUBitmap> LoadBitmap(const std::string& path) override {
        Call();
        loadedPaths.push_back(path);
        auto bitmap = CreateBitmap(Rendering::MemBitmap(2, 2));
        loadedBitmaps.push_back(bitmap.get());
        return bitmap;
    }

    std::unique_ptr<Rendering::Geometry>
    CreateGeometry(const std::vector<Rendering::GeometryVertex>& vertices) override {
        Call();
        return NullContext::CreateGeometry(vertices);
    }

    void DrawGeometry(const Utils::Matrix4& world, const Utils::Matrix4& view, const Utils::Matrix4& projection,
                      const Rendering::Geometry& geometry, const Rendering::GPUBitmap* bitmap,
                      const std::vector<const Rendering::GPUBitmap*>* furtherBitmaps,
                      const Rendering::GeometryDrawParams& params) override {
        Call();
        draws.push_back({world, view, projection, &geometry, bitmap, furtherBitmaps != nullptr, params});
        if (duringDraw)
            duringDraw();
    }

    std::vector<std::string> loadedPaths;
    std::vector<const Rendering::GPUBitmap*> loadedBitmaps; ///< in the order of the paths
    std::vector<DrawCall> draws;
    std::function<void()> beforeCall, duringDraw;

private:
    void Call() const {
        if (beforeCall)
            beforeCall();
    }
};

} // namespace Support
