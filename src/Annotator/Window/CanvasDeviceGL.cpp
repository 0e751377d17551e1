// libepoxy's header must come before the toolkit's, which includes the platform's GL.
#include "Rendering/OpenGL/GLContext.h"
#include "Rendering/OpenGL/GLFrameTarget.h"
#include "Rendering/OpenGL/SwapInterval.h"

#include "Annotator/Preview/CanvasControl.h"
#include "Annotator/Window/CanvasDevice.h"
#include "Annotator/Window/FramePacer.h"
#include "Logging/Logger.h"
#include "Utils/FatalError.h"

#include <chrono>
#include <optional>

namespace Annotator {

namespace {

constexpr const char* kPlace = "Annotator\\DXCanvas.cpp";
constexpr std::int32_t kMakingDevice = 280;

wxGLAttributes SurfaceAttributes() {
    // Without a depth buffer: frames are drawn to a separate target.
    wxGLAttributes attributes;
    attributes.PlatformDefaults().MinRGBA(8, 8, 8, 0).DoubleBuffer().EndList();
    return attributes;
}

wxGLContextAttrs ContextAttributes() {
    wxGLContextAttrs attributes;
    attributes.PlatformDefaults().CoreProfile().OGLVersion(3, 3).EndList();
    return attributes;
}

[[noreturn]] void FailWithoutOpenGL() {
    Logging::Logger::Get().Log(HERE, "The display does not support an OpenGL 3.3 core context");
    Utils::FatalError(kPlace, kMakingDevice);
}

class CanvasDeviceGL final : public CanvasDevice {
public:
    CanvasDeviceGL(CanvasBase& window, const Rendering::Camera& camera) : canvas(&window) {
        const wxGLContextAttrs attributes = ContextAttributes();
        glContext.emplace(canvas, nullptr, &attributes);
        if (!glContext->IsOK() || !glContext->SetCurrent(*canvas))
            FailWithoutOpenGL();
        Rendering::OpenGL::WaitForDisplay();
        context.emplace(camera);
        target.emplace(*context);
    }

    ~CanvasDeviceGL() override { IsMadeCurrent(); }

    Rendering::Context& Context() override { return *context; }
    bool MakeCurrent() override { return IsMadeCurrent(); }
    void Resize(Rendering::Size size) override { target->Resize(size); }
    void BeginFrame() override { target->Begin(kCanvasColour); }
    bool Present() override {
        target->Present();
        const auto start = std::chrono::steady_clock::now();
        if (!canvas->SwapBuffers()) {
            Logging::Logger::Get().Log(HERE, "Cannot show the frame");
            Utils::FatalError(HERE);
        }
        const bool waits = watch.Waits(std::chrono::steady_clock::now() - start);
        context->ReleaseDeferred();
        return waits;
    }

private:
    bool IsMadeCurrent() {
        const bool current = glContext->SetCurrent(*canvas);
        if (!current)
            Logging::Logger::Get().Log(HERE, "Cannot make the canvas's OpenGL context current");
        return current;
    }

    CanvasBase* canvas;
    std::optional<wxGLContext> glContext;
    std::optional<Rendering::OpenGL::GLContext> context;
    std::optional<Rendering::OpenGL::GLFrameTarget> target;
    PresentWatch watch;
};

} // namespace

CanvasBase::CanvasBase(wxWindow* parent, wxWindowID id)
    : wxGLCanvas(parent, SurfaceAttributes(), id, wxDefaultPosition, wxDefaultSize, 0) {
    if (!GetHandle())
        FailWithoutOpenGL();
}

std::unique_ptr<CanvasDevice> MakeCanvasDevice(CanvasBase& canvas, const Rendering::Camera& camera) {
    return std::make_unique<CanvasDeviceGL>(canvas, camera);
}

} // namespace Annotator
