#pragma once

#include "Rendering/OpenGL/GLName.h"

namespace Rendering::OpenGL {

/// Two triangles from (-1, -1) to (1, 1) at one z.
class Quad {
public:
    Quad(ContextToken owner, float z);

    void Draw() const;

private:
    GLName<BufferKind> buffer;
    GLName<VertexArrayKind> layout;
};

} // namespace Rendering::OpenGL
