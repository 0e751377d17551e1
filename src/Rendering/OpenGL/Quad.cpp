#include "Rendering/OpenGL/Quad.h"

namespace Rendering::OpenGL {

Quad::Quad(ContextToken owner, float z) : buffer(owner), layout(std::move(owner)) {
    const float corners[6][3] = {{-1, -1, z}, {-1, 1, z}, {1, 1, z}, {1, 1, z}, {1, -1, z}, {-1, -1, z}};
    glBindVertexArray(layout);
    glBindBuffer(GL_ARRAY_BUFFER, buffer);
    glBufferData(GL_ARRAY_BUFFER, sizeof(corners), corners, GL_STATIC_DRAW);
    glEnableVertexAttribArray(0);
    glVertexAttribPointer(0, 3, GL_FLOAT, GL_FALSE, sizeof(corners[0]), nullptr);
}

void Quad::Draw() const {
    glBindVertexArray(layout);
    glDrawArrays(GL_TRIANGLES, 0, 6);
}

} // namespace Rendering::OpenGL
