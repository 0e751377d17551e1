#pragma once

#include "Utils/NonAssignable.h"

#include <memory>

namespace Rendering::OpenGL {

/// An OpenGL 3.3 context without a window or a screen, current on the thread that created it. It has no default
/// framebuffer: draws go to bitmaps and frame targets. Throws std::runtime_error with the reason if the system provides
/// no such context.
class EglContext : public Utils::NonAssignable {
public:
    EglContext();
    ~EglContext();

    void MakeCurrent();

private:
    class Display;

    std::shared_ptr<Display> display; ///< shared by all contexts of the process
    void* context = nullptr;
};

} // namespace Rendering::OpenGL
