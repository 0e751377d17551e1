#include "Rendering/OpenGL/GLContext.h"

#include "Logging/Logger.h"
#include "Rendering/BitmapFile.h"
#include "Rendering/DeviceDraws.h"
#include "Rendering/OpenGL/GLError.h"
#include "Rendering/OpenGL/GLRenderToTextureLock.h"
#include "Rendering/OpenGL/GLState.h"
#include "Rendering/OpenGL/PixelReader.h"
#include "Utils/FatalError.h"

#include <utility>

namespace Rendering::OpenGL {

namespace {

constexpr int kVersion = 33; // 3.3

// The log's texture lines use Direct3D's numbers. Formats: 8-bit red, green, blue, alpha; 8-bit grey; two floats.
// Binding: read by shaders and drawn to; only read.
constexpr std::uint32_t kFormat = 28, kGreyFormat = 61, kDistortionFormat = 16;
constexpr std::uint32_t kBindFlags = 40, kOnlyRead = 8;
constexpr std::uint32_t kGenerateMips = 1;

std::string DriverText(GLenum name) {
    const GLubyte* text = glGetString(name);
    return text ? reinterpret_cast<const char*>(text) : "?";
}

/// Called first on a new context.
std::shared_ptr<const void> CheckDriver() {
    Logging::Logger::Get().Log(HERE, "OpenGL " + DriverText(GL_VERSION) + ", " + DriverText(GL_RENDERER));
    if (!epoxy_is_desktop_gl() || epoxy_gl_version() < kVersion) {
        Logging::Logger::Get().Log(HERE, "OpenGL 3.3 is needed");
        Utils::FatalError(HERE, epoxy_gl_version());
    }
    KeepDriverMessages();
    return std::make_shared<char>();
}

GLGPUBitmap& Own(GPUBitmap& bitmap) {
    return dynamic_cast<GLGPUBitmap&>(bitmap);
}

/// Shaders cannot read multisampled bitmaps.
GLuint TextureOf(const GLGPUBitmap& bitmap) {
    if (bitmap.IsMultisampled())
        Utils::FatalError(HERE, GL_INVALID_OPERATION);
    return bitmap.Texture();
}

void LogTexture(Size size, const char* file, std::int32_t line, std::uint32_t format = kFormat,
                std::uint32_t bindFlags = kBindFlags, std::uint32_t miscFlags = 0) {
    const Logging::TextureDescription texture{size.width, size.height, format, bindFlags, 0, miscFlags, 0};
    Logging::Logger::Get().Log(file, line, texture);
}

/// Rows of single bytes have no padding.
void FillTexture(GLuint texture, GLint internalFormat, Size size, GLenum format, GLenum type, const void* pixels) {
    const TextureBinding binding(GL_TEXTURE_2D, texture);
    glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
    glTexImage2D(GL_TEXTURE_2D, 0, internalFormat, static_cast<GLsizei>(size.width), static_cast<GLsizei>(size.height),
                 0, format, type, pixels);
    glPixelStorei(GL_UNPACK_ALIGNMENT, 4);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAX_LEVEL, 0);
}

} // namespace

GLContext::GLContext(const Camera& camera, std::uint64_t modeFlag)
    : token(CheckDriver()), modeFlag(modeFlag), camera(&camera), rectShader(token), leapShader(token),
      geometryShader(token), white(token, {1, 1}, false) {
    white.Upload(std::array{WhitePixel()}, GL_RGBA);
}

bool GLContext::IsGeometryValid(const Geometry* geometry) const {
    const auto* own = dynamic_cast<const GLGeometry*>(geometry);
    return own && IsSameContext(own->Owner(), token);
}

bool GLContext::IsBitmapValid(const GPUBitmap* bitmap) const {
    const auto* own = dynamic_cast<const GLGPUBitmap*>(bitmap);
    return own && IsSameContext(own->Owner(), token);
}

std::unique_ptr<GPUBitmap> GLContext::CreateBitmapFromCameraImage(const CameraImage& image) {
    if (!image.IsWhole())
        Utils::FatalError(HERE, GL_INVALID_VALUE);
    LogTexture(image.size, HERE, kGreyFormat, kOnlyRead);
    LogTexture(image.distortionSize, HERE, kDistortionFormat, kOnlyRead);
    LogTexture(image.size, HERE);
    const GLName<TextureKind> picture(token), distortion(token);
    FillTexture(picture, GL_R8, image.size, GL_RED, GL_UNSIGNED_BYTE, image.grey.data());
    FillTexture(distortion, GL_RG32F, image.distortionSize, GL_RG, GL_FLOAT, image.distortion.data());
    auto target = CreateRenderTarget(image.size, 1, 0);
    ClearBitmap(target.get(), kNoCameraPicture);
    GLRenderToTextureLock lock(Own(*target), false);
    leapShader.Draw(picture, distortion);
    return target;
}

std::unique_ptr<GPUBitmap> GLContext::CreateRenderTarget(Size size, std::uint32_t samples, std::uint32_t) {
    if (size.Area() == 0)
        Utils::FatalError(HERE, GL_INVALID_VALUE);
    return std::make_unique<GLGPUBitmap>(token, size, false, samples);
}

std::unique_ptr<GPUBitmap> GLContext::CreateBitmap(const MemBitmap& bitmap) {
    if (bitmap.Width() == 0 || bitmap.Height() == 0)
        return CreateBitmap(MemBitmap(1, 1));
    const Size size = SizeOf(bitmap);
    LogTexture(size, HERE, kFormat, kBindFlags, kGenerateMips);
    auto made = std::make_unique<GLGPUBitmap>(token, size, true);
    made->Upload({&bitmap, 1}, GL_BGRA); // the driver swaps red and blue
    return made;
}

std::unique_ptr<GPUBitmap> GLContext::LoadBitmap(const std::string& path) {
    if (!IsDdsPath(path))
        return CreateBitmap(ReadPngFile(path));
    const std::vector<MemBitmap> levels = ReadDdsOrFail(path);
    const Size size = SizeOf(levels.front());
    LogTexture(size, HERE, kFormat, kBindFlags, kGenerateMips);
    auto made = std::make_unique<GLGPUBitmap>(token, size, true);
    made->Upload(levels, GL_RGBA);
    return made;
}

std::unique_ptr<SharedGPUBitmap> GLContext::CreateSharedBitmap(Size) {
    return nullptr; // GL cannot share textures between processes
}

std::unique_ptr<RenderToTextureLock> GLContext::BeginRenderToTexture(GPUBitmap& bitmap, bool keepDepth) {
    return std::make_unique<GLRenderToTextureLock>(Own(bitmap), keepDepth);
}

void GLContext::CopyBitmap(GPUBitmap& target, GPUBitmap& source) {
    blitter.Blit(Own(source), {0, 0}, source.Size(), Own(target));
}

void GLContext::CopyBitmapRegion(GPUBitmap& target, GPUBitmap& source, Size origin, Size size) {
    blitter.Blit(Own(source), origin, size, Own(target));
}

std::unique_ptr<Geometry> GLContext::CreateGeometry(const std::vector<GeometryVertex>& vertices) {
    return std::make_unique<GLGeometry>(token, vertices);
}

void GLContext::DrawGeometry(const Utils::Matrix4& world, const Utils::Matrix4& view, const Utils::Matrix4& projection,
                             const Geometry& geometry, const GPUBitmap* bitmap,
                             const std::vector<const GPUBitmap*>* furtherBitmaps, const GeometryDrawParams& params) {
    const auto& mesh = dynamic_cast<const GLGeometry&>(geometry);
    const auto textureOf = [this](const GPUBitmap* given) {
        return given ? TextureOf(dynamic_cast<const GLGPUBitmap&>(*given)) : white.Texture();
    };
    textures.assign(1, textureOf(bitmap));
    if (furtherBitmaps)
        for (const GPUBitmap* further : *furtherBitmaps)
            textures.push_back(textureOf(further));
    else if (!params.effect.empty())
        textures.push_back(textures.front()); // for effects that read a second one
    ViewportScope viewport;
    ForEachPass(params, *camera, view, [&](ViewportPart part, const Utils::Matrix4& eyeView) {
        viewport.Set(part);
        geometryShader.Draw(world, eyeView, projection, mesh, textures, params);
    });
}

void GLContext::DrawBitmap(const Utils::Matrix4& view, const Utils::Matrix4& projection, const DrawRectangle& rectangle,
                           GPUBitmap& bitmap, const RectDrawParams& params) {
    if (!IsBitmapValid(&bitmap))
        Utils::FatalError(HERE);
    ViewportScope viewport;
    ForEachPass(params, *camera, view,
                [&, world = ToWorld(rectangle)](ViewportPart part, const Utils::Matrix4& eyeView) {
                    viewport.Set(part);
                    rectShader.Draw(world, eyeView, projection, TextureOf(Own(bitmap)), params);
                });
}

void GLContext::GenerateMips(GPUBitmap* bitmap) {
    if (bitmap)
        Own(*bitmap).GenerateMips();
}

void GLContext::ClearBitmap(GPUBitmap* bitmap, const Utils::Vector4& colour) {
    if (!bitmap)
        return;
    const FramebufferBinding binding(Own(*bitmap).Framebuffer());
    glClearBufferfv(GL_COLOR, 0, colour.data());
    CheckGL(HERE, "clearing a bitmap");
}

MemBitmap GLContext::ReadBitmap(GPUBitmap& bitmap) {
    GLGPUBitmap& own = Own(bitmap);
    if (!own.IsMultisampled())
        return ReadPixels(own.Framebuffer(), own.Size());
    GLGPUBitmap resolved(token, own.Size(), false);
    blitter.Blit(own, {0, 0}, own.Size(), resolved);
    return ReadPixels(resolved.Framebuffer(), own.Size());
}

} // namespace Rendering::OpenGL
