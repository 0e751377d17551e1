#pragma once

#include "Utils/NonAssignable.h"

namespace Rendering::OpenGL {

/// Blending, depth and culling of one draw. Restores the depth mask at the end of the scope, because clearing the depth
/// depends on it.
class GLDrawState : public Utils::NonAssignable {
public:
    GLDrawState(bool blend, bool depthTest, bool depthWrite);
    ~GLDrawState();

private:
    bool masked;
};

} // namespace Rendering::OpenGL
