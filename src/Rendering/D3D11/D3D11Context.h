#pragma once

#include "Rendering/Camera.h"
#include "Rendering/Context.h"
#include "Rendering/D3D11/Blitter.h"
#include "Rendering/D3D11/D3D11GPUBitmap.h"
#include "Rendering/D3D11/D3D11GeometryShader.h"
#include "Rendering/D3D11/D3D11LeapShader.h"
#include "Rendering/D3D11/D3D11RectShader.h"

namespace Rendering::D3D11 {

/// The device on Direct3D 11. Device, camera and render targets belong to the caller. It draws to the current target
/// and viewport and may change other pipeline state, which callers set themselves.
class D3D11Context : public Context {
public:
    D3D11Context(ID3D11Device* device, const Camera& camera, std::uint64_t modeFlag = 0);
    ~D3D11Context() override;

    bool IsGeometryValid(const Rendering::Geometry* geometry) const override;
    bool IsBitmapValid(const GPUBitmap* bitmap) const override;
    std::unique_ptr<GPUBitmap> CreateBitmapFromCameraImage(const CameraImage& image) override;
    std::unique_ptr<GPUBitmap> CreateRenderTarget(Size size, std::uint32_t samples, std::uint32_t quality) override;
    std::unique_ptr<GPUBitmap> CreateBitmap(const MemBitmap& bitmap) override;
    std::unique_ptr<GPUBitmap> LoadBitmap(const std::string& path) override;
    std::unique_ptr<SharedGPUBitmap> CreateSharedBitmap(Size size) override;
    std::unique_ptr<RenderToTextureLock> BeginRenderToTexture(GPUBitmap& bitmap, bool keepDepth) override;
    void CopyBitmap(GPUBitmap& target, GPUBitmap& source) override;
    void CopyBitmapRegion(GPUBitmap& target, GPUBitmap& source, Size origin, Size size) override;
    std::unique_ptr<Rendering::Geometry> CreateGeometry(const std::vector<GeometryVertex>& vertices) override;
    void DrawGeometry(const Utils::Matrix4& world, const Utils::Matrix4& view, const Utils::Matrix4& projection,
                      const Rendering::Geometry& geometry, const GPUBitmap* bitmap,
                      const std::vector<const GPUBitmap*>* furtherBitmaps, const GeometryDrawParams& params) override;
    std::uint64_t GetModeFlag() const override { return modeFlag; }
    void DrawBitmap(const Utils::Matrix4& view, const Utils::Matrix4& projection, const DrawRectangle& rectangle,
                    GPUBitmap& bitmap, const RectDrawParams& params) override;
    void GenerateMips(GPUBitmap* bitmap) override;
    void ClearBitmap(GPUBitmap* bitmap, const Utils::Vector4& colour) override;
    /// Wraps a texture of the caller and holds its own reference to it.
    virtual std::unique_ptr<GPUBitmap> WrapTexture(ID3D11Texture2D* texture);

private:
    std::unique_ptr<D3D11GPUBitmap> UploadPicture(const MemBitmap& pixels);
    std::unique_ptr<GPUBitmap> LoadDds(const std::string& path);

    std::uint64_t modeFlag;
    const Camera* camera;
    std::unique_ptr<Blitter> blitter;
    std::unique_ptr<D3D11RectShader> rectShader;
    std::unique_ptr<D3D11LeapShader> leapShader;
    std::unique_ptr<D3D11GeometryShader> geometryShader;
    ID3D11Device* device;
    std::unique_ptr<D3D11GPUBitmap> white;               ///< used if no bitmap is given
    std::vector<ID3D11ShaderResourceView*> furtherViews; ///< of the current draw; a member to reuse its memory
};

} // namespace Rendering::D3D11
