#pragma once

#include "Rendering/Camera.h"
#include "Rendering/Context.h"
#include "Rendering/OpenGL/Blitter.h"
#include "Rendering/OpenGL/GLGeometryShader.h"
#include "Rendering/OpenGL/GLLeapShader.h"
#include "Rendering/OpenGL/GLRectShader.h"

namespace Rendering::OpenGL {

/// The device on OpenGL 3.3. It is made on a GL context that is current, which stays its maker's, and must be current
/// whenever one of its operations is called and when one of its objects goes; an object that outlives it leaves GL
/// alone. It draws to the framebuffer and viewport of the moment, and leaves no other state behind that matters to a
/// caller who sets his own.
class GLContext : public Context {
public:
    /// The camera gives the eye matrices and must outlive the context. A driver without OpenGL 3.3 is a fatal error.
    explicit GLContext(const Camera& camera, std::uint64_t modeFlag = 0);

    bool IsGeometryValid(const Geometry* geometry) const override;
    bool IsBitmapValid(const GPUBitmap* bitmap) const override;
    std::unique_ptr<GPUBitmap> CreateBitmapFromCameraImage(const CameraImage& image) override;
    std::unique_ptr<GPUBitmap> CreateRenderTarget(Size size, std::uint32_t samples, std::uint32_t quality) override;
    std::unique_ptr<GPUBitmap> CreateBitmap(const MemBitmap& bitmap) override;
    std::unique_ptr<GPUBitmap> LoadBitmap(const std::string& path) override;
    std::unique_ptr<SharedGPUBitmap> CreateSharedBitmap(Size size) override;
    std::unique_ptr<RenderToTextureLock> BeginRenderToTexture(GPUBitmap& bitmap, bool keepDepth) override;
    void CopyBitmap(GPUBitmap& target, GPUBitmap& source) override;
    void CopyBitmapRegion(GPUBitmap& target, GPUBitmap& source, Size origin, Size size) override;
    std::unique_ptr<Geometry> CreateGeometry(const std::vector<GeometryVertex>& vertices) override;
    void DrawGeometry(const Utils::Matrix4& world, const Utils::Matrix4& view, const Utils::Matrix4& projection,
                      const Geometry& geometry, const GPUBitmap* bitmap,
                      const std::vector<const GPUBitmap*>* furtherBitmaps, const GeometryDrawParams& params) override;
    std::uint64_t GetModeFlag() const override { return modeFlag; }
    void DrawBitmap(const Utils::Matrix4& view, const Utils::Matrix4& projection, const DrawRectangle& rectangle,
                    GPUBitmap& bitmap, const RectDrawParams& params) override;
    void GenerateMips(GPUBitmap* bitmap) override;
    void ClearBitmap(GPUBitmap* bitmap, const Utils::Vector4& colour) override;

    /// What a bitmap of this context holds: red, green, blue, alpha, top row first. Waits for the device.
    MemBitmap ReadBitmap(GPUBitmap& bitmap);
    /// For other objects on the same GL context.
    ContextToken Token() const { return token; }

private:
    std::shared_ptr<const void> token; ///< expires behind everything that this context made for itself
    std::uint64_t modeFlag;
    const Camera* camera;
    Blitter blitter;
    GLRectShader rectShader;
    GLLeapShader leapShader;
    GLGeometryShader geometryShader;
    GLGPUBitmap white;            ///< stands for a bitmap that is not given
    std::vector<GLuint> textures; ///< of the draw under way; kept for its memory
};

} // namespace Rendering::OpenGL
