#pragma once

#include "Utils/NonAssignable.h"

#include <epoxy/gl.h>
#include <memory>
#include <utility>

namespace Rendering::OpenGL {

/// Identifies a context: its objects compare it to check their owner, and it expires when the context is destroyed
/// together with all of the driver's objects.
using ContextToken = std::weak_ptr<const void>;

inline bool IsSameContext(const ContextToken& a, const ContextToken& b) {
    return !a.owner_before(b) && !b.owner_before(a);
}

/// The driver's name of a texture, a buffer or similar; deleted with this object unless its context is already
/// destroyed.
template <typename Kind>
class GLName : public Utils::NonAssignable {
public:
    explicit GLName(ContextToken owner) : owner(std::move(owner)) { Kind::Create(&name); }
    ~GLName() {
        if (!owner.expired())
            Kind::Delete(&name);
    }
    operator GLuint() const { return name; } // NOLINT: GL calls take the plain name
    const ContextToken& Owner() const { return owner; }

private:
    ContextToken owner;
    GLuint name = 0;
};

struct BufferKind {
    static void Create(GLuint* name) { glGenBuffers(1, name); }
    static void Delete(const GLuint* name) { glDeleteBuffers(1, name); }
};
struct FramebufferKind {
    static void Create(GLuint* name) { glGenFramebuffers(1, name); }
    static void Delete(const GLuint* name) { glDeleteFramebuffers(1, name); }
};
struct RenderbufferKind {
    static void Create(GLuint* name) { glGenRenderbuffers(1, name); }
    static void Delete(const GLuint* name) { glDeleteRenderbuffers(1, name); }
};
struct SamplerKind {
    static void Create(GLuint* name) { glGenSamplers(1, name); }
    static void Delete(const GLuint* name) { glDeleteSamplers(1, name); }
};
struct TextureKind {
    static void Create(GLuint* name) { glGenTextures(1, name); }
    static void Delete(const GLuint* name) { glDeleteTextures(1, name); }
};
struct VertexArrayKind {
    static void Create(GLuint* name) { glGenVertexArrays(1, name); }
    static void Delete(const GLuint* name) { glDeleteVertexArrays(1, name); }
};

} // namespace Rendering::OpenGL
