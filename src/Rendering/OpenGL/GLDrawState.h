#pragma once

#include "Utils/NonAssignable.h"

namespace Rendering::OpenGL {

/// Blending, depth and culling of one draw. The depth mask is put back at the scope's end, as a clear of the depth
/// obeys it.
class GLDrawState : public Utils::NonAssignable {
public:
    GLDrawState(bool blend, bool depthTest, bool depthWrite);
    ~GLDrawState();

private:
    bool masked;
};

} // namespace Rendering::OpenGL
