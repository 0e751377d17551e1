#include "Rendering/OpenGL/EglContext.h"

#include <array>
#include <cstdio>
#include <epoxy/egl.h>
#include <mutex>
#include <stdexcept>
#include <string>

namespace Rendering::OpenGL {

namespace {

constexpr EGLint kContextAttributes[] = {
    EGL_CONTEXT_MAJOR_VERSION,           3,       EGL_CONTEXT_MINOR_VERSION, 3, EGL_CONTEXT_OPENGL_PROFILE_MASK,
    EGL_CONTEXT_OPENGL_CORE_PROFILE_BIT, EGL_NONE};

[[noreturn]] void Fail(const std::string& fault) {
    std::array<char, 16> code{};
    std::snprintf(code.data(), code.size(), "0x%04X", static_cast<unsigned>(eglGetError()));
    throw std::runtime_error("No OpenGL without a window: " + fault + " (EGL " + code.data() + ")");
}

/// An initialised display that needs no screen; null if the platform has none.
EGLDisplay OpenPlatform(EGLenum platform, void* native) {
    const EGLDisplay display = eglGetPlatformDisplayEXT(platform, native, nullptr);
    return display != EGL_NO_DISPLAY && eglInitialize(display, nullptr, nullptr) ? display : EGL_NO_DISPLAY;
}

/// For drivers without surfaceless displays: the first graphics card.
EGLDisplay OpenFirstDevice() {
    EGLDeviceEXT device = nullptr;
    EGLint count = 0;
    if (!epoxy_has_egl_extension(EGL_NO_DISPLAY, "EGL_EXT_device_enumeration") ||
        !eglQueryDevicesEXT(1, &device, &count) || count == 0)
        return EGL_NO_DISPLAY;
    return OpenPlatform(EGL_PLATFORM_DEVICE_EXT, device);
}

EGLDisplay OpenDisplay() {
    if (!epoxy_has_egl_extension(EGL_NO_DISPLAY, "EGL_EXT_platform_base"))
        Fail("EGL knows no platforms");
    EGLDisplay display = EGL_NO_DISPLAY;
    if (epoxy_has_egl_extension(EGL_NO_DISPLAY, "EGL_MESA_platform_surfaceless"))
        display = OpenPlatform(EGL_PLATFORM_SURFACELESS_MESA, EGL_DEFAULT_DISPLAY);
    if (display == EGL_NO_DISPLAY)
        display = OpenFirstDevice();
    if (display == EGL_NO_DISPLAY)
        Fail("neither a surfaceless display nor a device opens");
    return display;
}

} // namespace

class EglContext::Display : public Utils::NonAssignable {
public:
    Display() : handle(OpenDisplay()) {}
    ~Display() { eglTerminate(handle); }

    static std::shared_ptr<Display> Shared() {
        static std::mutex mutex; // guards the display
        static std::weak_ptr<Display> display;
        const std::lock_guard lock(mutex);
        std::shared_ptr<Display> shared = display.lock();
        if (!shared)
            display = shared = std::make_shared<Display>();
        return shared;
    }

    const EGLDisplay handle;
};

EglContext::EglContext() : display(Display::Shared()) {
    if (!epoxy_has_egl_extension(display->handle, "EGL_KHR_surfaceless_context"))
        Fail("contexts need a surface here");
    if (!eglBindAPI(EGL_OPENGL_API))
        Fail("EGL has no desktop OpenGL");
    // No configuration: the context has no framebuffer to describe.
    context = eglCreateContext(display->handle, EGL_NO_CONFIG_KHR, EGL_NO_CONTEXT, kContextAttributes);
    if (!context)
        Fail("the driver gives no OpenGL 3.3");
    MakeCurrent();
}

EglContext::~EglContext() {
    if (eglGetCurrentContext() == context)
        eglMakeCurrent(display->handle, EGL_NO_SURFACE, EGL_NO_SURFACE, EGL_NO_CONTEXT);
    eglDestroyContext(display->handle, context);
}

void EglContext::MakeCurrent() {
    if (!eglMakeCurrent(display->handle, EGL_NO_SURFACE, EGL_NO_SURFACE, context))
        Fail("the context cannot be made current");
}

} // namespace Rendering::OpenGL
