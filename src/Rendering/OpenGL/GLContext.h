#pragma once

#include "Rendering/Camera.h"
#include "Rendering/Context.h"
#include "Rendering/OpenGL/Blitter.h"
#include "Rendering/OpenGL/GLGeometryShader.h"
#include "Rendering/OpenGL/GLLeapShader.h"
#include "Rendering/OpenGL/GLRectShader.h"

namespace Rendering::OpenGL {

/// The device on OpenGL 3.3. It is created on the current GL context, which the caller owns and which must be current
/// whenever an operation is called or an object is destroyed; an object that outlives the device makes no GL calls. It
/// draws to the current framebuffer and viewport and may change other state, which callers set themselves.
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

    /// The pixels of a bitmap of this context: red, green, blue, alpha, top row first. Waits for the device.
    MemBitmap ReadBitmap(GPUBitmap& bitmap);
    /// For other objects on the same GL context.
    ContextToken Token() const { return token; }

private:
    std::shared_ptr<const void> token; ///< declared first: expires after all other members
    std::uint64_t modeFlag;
    const Camera* camera;
    Blitter blitter;
    GLRectShader rectShader;
    GLLeapShader leapShader;
    GLGeometryShader geometryShader;
    GLGPUBitmap white;            ///< used if no bitmap is given
    std::vector<GLuint> textures; ///< of the current draw; a member to reuse its memory
};

} // namespace Rendering::OpenGL
