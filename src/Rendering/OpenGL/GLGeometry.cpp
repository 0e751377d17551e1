#include "Rendering/OpenGL/GLGeometry.h"

#include "Rendering/OpenGL/GLError.h"

#include <cstddef>
#include <limits>
#include <utility>

#include "Utils/FatalError.h"

namespace Rendering::OpenGL {

namespace {

const void* Offset(std::size_t bytes) {
    return reinterpret_cast<const void*>(bytes);
}

void AddFloats(GLuint location, GLint components, std::size_t offset) {
    glEnableVertexAttribArray(location);
    glVertexAttribPointer(location, components, GL_FLOAT, GL_FALSE, sizeof(GeometryVertex), Offset(offset));
}

} // namespace

GLGeometry::GLGeometry(ContextToken owner, std::span<const GeometryVertex> vertices)
    : buffer(owner), layout(std::move(owner)), count(static_cast<GLsizei>(vertices.size())) {
    if (vertices.empty() || std::cmp_greater(vertices.size(), std::numeric_limits<GLsizei>::max()))
        Utils::FatalError(HERE, GL_INVALID_VALUE);
    glBindVertexArray(layout);
    glBindBuffer(GL_ARRAY_BUFFER, buffer);
    glBufferData(GL_ARRAY_BUFFER, static_cast<GLsizeiptr>(vertices.size_bytes()), vertices.data(), GL_STATIC_DRAW);
    AddFloats(0, 3, offsetof(GeometryVertex, position));
    AddFloats(1, 3, offsetof(GeometryVertex, normal));
    AddFloats(2, 2, offsetof(GeometryVertex, texture));
    AddFloats(3, 2, offsetof(GeometryVertex, secondTexture));
    glEnableVertexAttribArray(4);
    glVertexAttribIPointer(4, 4, GL_UNSIGNED_BYTE, sizeof(GeometryVertex),
                           Offset(offsetof(GeometryVertex, blendIndices)));
    AddFloats(5, 4, offsetof(GeometryVertex, blendWeights));
    CheckGL(HERE, "making a geometry");
}

void GLGeometry::Draw() const {
    glBindVertexArray(layout);
    glDrawArrays(GL_TRIANGLES, 0, count);
}

} // namespace Rendering::OpenGL
