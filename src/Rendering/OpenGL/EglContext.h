#pragma once

#include "Utils/NonAssignable.h"

#include <memory>

namespace Rendering::OpenGL {

/// An OpenGL 3.3 context without a window or a screen, current on the thread that made it. It has no framebuffer of
/// its own: what is drawn goes to bitmaps and frame targets. Throws std::runtime_error with the reason in words where
/// the system has none to give.
class EglContext : public Utils::NonAssignable {
public:
    EglContext();
    ~EglContext();

    void MakeCurrent();

private:
    class Display;

    std::shared_ptr<Display> display; ///< one for all contexts of the process
    void* context = nullptr;
};

} // namespace Rendering::OpenGL
