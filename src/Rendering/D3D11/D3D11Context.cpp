#include "Rendering/D3D11/D3D11Context.h"

#include "Rendering/BitmapFile.h"
#include "Rendering/CopyRegion.h"
#include "Rendering/D3D11/D3DX.h"
#include "Rendering/D3D11/DX11RenderToTextureLock.h"
#include "Rendering/D3D11/DX11Texture.h"
#include "Rendering/D3D11/DXSharedGPUBitmap.h"
#include "Rendering/D3D11/DrawScopes.h"
#include "Rendering/D3D11/TextureRenderLock.h"
#include "Rendering/DeviceDraws.h"

namespace Rendering::D3D11 {

namespace {

constexpr DXGI_FORMAT kFormat = DXGI_FORMAT_R8G8B8A8_UNORM;
constexpr UINT kReadAndDrawn = D3D11_BIND_SHADER_RESOURCE | D3D11_BIND_RENDER_TARGET;

/// One level, one sample.
D3D11_TEXTURE2D_DESC Description(Size size, DXGI_FORMAT format, UINT bindFlags) {
    D3D11_TEXTURE2D_DESC description{};
    description.Width = size.width;
    description.Height = size.height;
    description.MipLevels = 1;
    description.ArraySize = 1;
    description.Format = format;
    description.SampleDesc.Count = 1;
    description.BindFlags = bindFlags;
    return description;
}

struct ReadTexture {
    ComPtr<ID3D11Texture2D> texture;
    ComPtr<ID3D11ShaderResourceView> view;
};

ReadTexture CreateReadTexture(ID3D11Device* device, Size size, DXGI_FORMAT format, const void* pixels, UINT pitch) {
    const D3D11_TEXTURE2D_DESC description = Description(size, format, D3D11_BIND_SHADER_RESOURCE);
    LogTexture(HERE, description);
    const D3D11_SUBRESOURCE_DATA data{pixels, pitch, 0};
    ReadTexture made;
    Check(device->CreateTexture2D(&description, &data, &made.texture), HERE);
    Check(device->CreateShaderResourceView(made.texture.Get(), nullptr, &made.view), HERE);
    return made;
}

D3D11GPUBitmap& Own(GPUBitmap& bitmap) {
    return dynamic_cast<D3D11GPUBitmap&>(bitmap);
}

/// The part of the source that fits: the device ignores a copy that exceeds the target.
void CopyWhole(ID3D11DeviceContext* context, const D3D11GPUBitmap& target, const D3D11GPUBitmap& source) {
    const Size part = CopiedPart({0, 0}, source.Size(), source.Size(), target.Size());
    const D3D11_BOX box{0, 0, 0, part.width, part.height, 1};
    context->CopySubresourceRegion(target.Texture(), 0, 0, 0, 0, source.Texture(), 0, &box);
}

/// Shaders cannot read multisampled bitmaps.
ID3D11ShaderResourceView* ViewOf(const D3D11GPUBitmap& bitmap) {
    if (bitmap.IsMultisampled())
        Check(E_INVALIDARG, HERE);
    return bitmap.ShaderView();
}

Utils::Vector2 Share(Size part, Size whole) {
    return {static_cast<float>(part.width) / static_cast<float>(whole.width),
            static_cast<float>(part.height) / static_cast<float>(whole.height)};
}

} // namespace

D3D11Context::D3D11Context(ID3D11Device* device, const Camera& camera, std::uint64_t modeFlag)
    : modeFlag(modeFlag), camera(&camera), device(device) {
    rectShader = std::make_unique<D3D11RectShader>(device);
    leapShader = std::make_unique<D3D11LeapShader>(device);
    geometryShader = std::make_unique<D3D11GeometryShader>(device);
    blitter = std::make_unique<Blitter>(device);
    white = UploadPicture(WhitePixel());
}

D3D11Context::~D3D11Context() = default;

bool D3D11Context::IsGeometryValid(const Rendering::Geometry* geometry) const {
    const auto* own = dynamic_cast<const Geometry*>(geometry);
    return own && own->Device() == device;
}

bool D3D11Context::IsBitmapValid(const GPUBitmap* bitmap) const {
    const auto* own = dynamic_cast<const D3D11GPUBitmap*>(bitmap);
    return own && own->Device() == device;
}

std::unique_ptr<GPUBitmap> D3D11Context::CreateBitmapFromCameraImage(const CameraImage& image) {
    if (!image.IsWhole())
        Check(E_INVALIDARG, HERE);
    const ReadTexture picture =
        CreateReadTexture(device, image.size, DXGI_FORMAT_R8_UNORM, image.grey.data(), image.size.width);
    const ReadTexture distortion = CreateReadTexture(device, image.distortionSize, DXGI_FORMAT_R32G32_FLOAT,
                                                     image.distortion.data(), 8 * image.distortionSize.width);
    LogTexture(HERE, Description(image.size, kFormat, kReadAndDrawn));
    auto target = CreateRenderTarget(image.size, 1, 0);
    ClearBitmap(target.get(), kNoCameraPicture);
    DX11RenderToTextureLock lock(device, Own(*target), false);
    leapShader->Draw(picture.view.Get(), distortion.view.Get());
    return target;
}

std::unique_ptr<GPUBitmap> D3D11Context::CreateRenderTarget(Size size, std::uint32_t samples, std::uint32_t quality) {
    D3D11_TEXTURE2D_DESC description = Description(size, kFormat, kReadAndDrawn);
    description.SampleDesc = {samples, quality};
    ComPtr<ID3D11Texture2D> texture;
    Check(device->CreateTexture2D(&description, nullptr, &texture), HERE);
    return std::make_unique<D3D11GPUBitmap>(device, texture.Get(), false);
}

std::unique_ptr<GPUBitmap> D3D11Context::CreateBitmap(const MemBitmap& bitmap) {
    if (bitmap.Width() == 0 || bitmap.Height() == 0)
        return CreateBitmap(MemBitmap(1, 1));
    MemBitmap swapped;
    bitmap.CopySwappingRedBlue(swapped);
    return UploadPicture(swapped);
}

std::unique_ptr<D3D11GPUBitmap> D3D11Context::UploadPicture(const MemBitmap& pixels) {
    const Size size = SizeOf(pixels);
    D3D11_TEXTURE2D_DESC description = Description(size, kFormat, kReadAndDrawn);
    description.MipLevels = 0; // the whole chain
    description.MiscFlags = D3D11_RESOURCE_MISC_GENERATE_MIPS;
    LogTexture(HERE, description);
    ComPtr<ID3D11Texture2D> texture;
    Check(device->CreateTexture2D(&description, nullptr, &texture), HERE);
    const auto context = ImmediateContext(device);
    context->UpdateSubresource(texture.Get(), 0, nullptr, pixels.Pixels().data(), 4 * size.width,
                               4 * size.width * size.height);
    auto made = std::make_unique<D3D11GPUBitmap>(device, texture.Get(), false);
    context->GenerateMips(made->ShaderView());
    return made;
}

std::unique_ptr<GPUBitmap> D3D11Context::LoadBitmap(const std::string& path) {
    return IsDdsPath(path) ? LoadDds(path) : CreateBitmap(ReadPngFile(path));
}

std::unique_ptr<GPUBitmap> D3D11Context::LoadDds(const std::string& path) {
    ComPtr<ID3D11Texture2D> texture;
    Check(CreateTextureFromFile(device, path, texture), HERE);
    const D3D11GPUBitmap loaded(device, texture.Get(), true);
    auto target = CreateRenderTarget(loaded.Size(), 1, 0);
    // The file's first row is the image's bottom row.
    blitter->Blit(loaded.ShaderView(), Own(*target).TargetView(), {0.0f, 1.0f}, {1.0f, -1.0f}, loaded.Size());
    return target;
}

std::unique_ptr<SharedGPUBitmap> D3D11Context::CreateSharedBitmap(Size size) {
    D3D11_TEXTURE2D_DESC description = Description(size, kFormat, kReadAndDrawn);
    description.MiscFlags = D3D11_RESOURCE_MISC_SHARED_KEYEDMUTEX;
    ComPtr<ID3D11Texture2D> texture;
    ComPtr<IDXGIResource> resource;
    HANDLE handle = nullptr;
    if (FAILED(device->CreateTexture2D(&description, nullptr, &texture)) || FAILED(texture.As(&resource)) ||
        FAILED(resource->GetSharedHandle(&handle)) || !handle)
        return nullptr;
    auto bitmap = D3D11GPUBitmap::MakeOrNull(device, texture.Get());
    return bitmap ? std::make_unique<DXSharedGPUBitmap>(std::move(bitmap), handle) : nullptr;
}

std::unique_ptr<RenderToTextureLock> D3D11Context::BeginRenderToTexture(GPUBitmap& bitmap, bool keepDepth) {
    return std::make_unique<DX11RenderToTextureLock>(device, Own(bitmap), keepDepth);
}

void D3D11Context::CopyBitmap(GPUBitmap& target, GPUBitmap& source) {
    ID3D11Texture2D *to = Own(target).Texture(), *from = Own(source).Texture();
    const TextureRenderLock sourceLock(from), targetLock(to);
    const auto context = ImmediateContext(device);
    if (Own(source).IsMultisampled())
        context->ResolveSubresource(to, 0, from, 0, kFormat);
    else
        CopyWhole(context.Get(), Own(target), Own(source));
    context->Flush();
}

void D3D11Context::CopyBitmapRegion(GPUBitmap& target, GPUBitmap& source, Size origin, Size size) {
    const Size part = CopiedPart(origin, size, source.Size(), target.Size());
    if (part.Area() == 0)
        return;
    if (Own(source).IsMultisampled()) {
        const auto resolved = CreateRenderTarget(source.Size(), 1, 0);
        CopyBitmap(*resolved, source);
        return CopyBitmapRegion(target, *resolved, origin, part);
    }
    const TextureRenderLock sourceLock(Own(source).Texture()), targetLock(Own(target).Texture());
    blitter->Blit(Own(source).ShaderView(), Own(target).TargetView(), Share(origin, source.Size()),
                  Share(part, source.Size()), part);
}

std::unique_ptr<Rendering::Geometry> D3D11Context::CreateGeometry(const std::vector<GeometryVertex>& vertices) {
    return std::make_unique<Geometry>(device, vertices);
}

void D3D11Context::DrawGeometry(const Utils::Matrix4& world, const Utils::Matrix4& view,
                                const Utils::Matrix4& projection, const Rendering::Geometry& geometry,
                                const GPUBitmap* bitmap, const std::vector<const GPUBitmap*>* furtherBitmaps,
                                const GeometryDrawParams& params) {
    const auto& mesh = dynamic_cast<const Geometry&>(geometry);
    const auto viewOf = [this](const GPUBitmap* given) {
        return given ? ViewOf(dynamic_cast<const D3D11GPUBitmap&>(*given)) : white->ShaderView();
    };
    furtherViews.clear();
    if (furtherBitmaps)
        for (const GPUBitmap* further : *furtherBitmaps)
            furtherViews.push_back(viewOf(further));
    else
        furtherViews.push_back(viewOf(bitmap));
    const auto context = ImmediateContext(device);
    const ViewportScope viewport(context.Get());
    ForEachPass(params, *camera, view, [&](ViewportPart part, const Utils::Matrix4& eyeView) {
        viewport.Set(part);
        geometryShader->Draw(world, eyeView, projection, mesh, viewOf(bitmap), furtherViews, params);
    });
}

void D3D11Context::DrawBitmap(const Utils::Matrix4& view, const Utils::Matrix4& projection,
                              const DrawRectangle& rectangle, GPUBitmap& bitmap, const RectDrawParams& params) {
    if (!IsBitmapValid(&bitmap))
        Utils::FatalError(HERE);
    const TextureRenderLock lock(Own(bitmap).Texture());
    const auto context = ImmediateContext(device);
    const ViewportScope viewport(context.Get());
    ForEachPass(params, *camera, view,
                [&, world = ToWorld(rectangle)](ViewportPart part, const Utils::Matrix4& eyeView) {
                    viewport.Set(part);
                    rectShader->Draw(world, eyeView, projection, ViewOf(Own(bitmap)), params);
                });
}

void D3D11Context::GenerateMips(GPUBitmap* bitmap) {
    if (bitmap)
        ImmediateContext(device)->GenerateMips(Own(*bitmap).ShaderView());
}

void D3D11Context::ClearBitmap(GPUBitmap* bitmap, const Utils::Vector4& colour) {
    if (bitmap)
        ImmediateContext(device)->ClearRenderTargetView(Own(*bitmap).TargetView(), colour.data());
}

std::unique_ptr<GPUBitmap> D3D11Context::WrapTexture(ID3D11Texture2D* texture) {
    return std::make_unique<D3D11GPUBitmap>(device, texture, false);
}

} // namespace Rendering::D3D11
