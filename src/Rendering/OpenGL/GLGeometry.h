#pragma once

#include "Rendering/Context.h"
#include "Rendering/OpenGL/GLName.h"

namespace Rendering::OpenGL {

/// A vertex buffer with its layout.
class GLGeometry : public Geometry {
public:
    GLGeometry(ContextToken owner, std::span<const GeometryVertex> vertices);

    const ContextToken& Owner() const { return buffer.Owner(); }
    /// Draws all triangles with the current shader and state.
    void Draw() const;

private:
    GLName<BufferKind> buffer;
    GLName<VertexArrayKind> layout;
    GLsizei count;
};

} // namespace Rendering::OpenGL
