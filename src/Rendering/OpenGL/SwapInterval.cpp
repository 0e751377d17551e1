#include "Rendering/OpenGL/SwapInterval.h"

#include "Logging/Logger.h"
#include "Utils/Place.h"

#include <epoxy/egl.h>
#include <epoxy/glx.h>

namespace Rendering::OpenGL {

namespace {

constexpr int kRefreshes = 1;

bool SetEglInterval() {
    return eglSwapInterval(eglGetCurrentDisplay(), kRefreshes) == EGL_TRUE;
}

bool SetGlxInterval() {
    Display* const display = glXGetCurrentDisplay();
    const int screen = DefaultScreen(display);
    if (epoxy_has_glx_extension(display, screen, "GLX_EXT_swap_control")) {
        glXSwapIntervalEXT(display, glXGetCurrentDrawable(), kRefreshes);
        return true;
    }
    if (epoxy_has_glx_extension(display, screen, "GLX_MESA_swap_control"))
        return glXSwapIntervalMESA(kRefreshes) == 0;
    return epoxy_has_glx_extension(display, screen, "GLX_SGI_swap_control") && glXSwapIntervalSGI(kRefreshes) == 0;
}

} // namespace

void WaitForDisplay() {
    if (!(eglGetCurrentContext() != EGL_NO_CONTEXT ? SetEglInterval() : SetGlxInterval()))
        Logging::Logger::Get().Log(HERE, "The driver does not support vertical synchronisation");
}

} // namespace Rendering::OpenGL
