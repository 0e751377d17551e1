// The GL and EGL functions that the OpenGL device calls, for a program that rarely draws: libepoxy, whose table of some
// thousand functions the loader must link, is loaded on the first call instead of at every program start.

#include <dlfcn.h>
#include <epoxy/egl.h>
#include <epoxy/gl.h>
#include <stdexcept>
#include <string>

namespace {

void* Library() {
    static void* const library = dlopen("libepoxy.so.0", RTLD_NOW | RTLD_LOCAL);
    if (library == nullptr)
        throw std::runtime_error(std::string("libepoxy, which finds OpenGL, cannot be loaded: ") + dlerror());
    return library;
}

void* Find(const char* name) {
    void* const symbol = dlsym(Library(), name);
    if (symbol == nullptr)
        throw std::runtime_error(std::string("this version of libepoxy has no ") + name);
    return symbol;
}

/// A function that calls through the library's variable of the same name; the library puts the driver's function there
/// on its first call.
template <typename Signature, const char* Name>
struct OnDemand;

template <typename Result, typename... Arguments, const char* Name>
struct OnDemand<Result(EPOXY_CALLSPEC*)(Arguments...), Name> {
    static Result Call(Arguments... arguments) {
        using Function = Result (*)(Arguments...);
        static const auto* const variable = static_cast<const Function*>(Find(Name));
        return (*variable)(arguments...);
    }
};

template <typename Result, typename... Arguments>
Result Call(Result (* /*signature*/)(Arguments...), const char* name, Arguments... arguments) {
    return reinterpret_cast<Result (*)(Arguments...)>(Find(name))(arguments...);
}

} // namespace

#define ON_DEMAND(function)                                                                                            \
    static constexpr char name_##function[] = "epoxy_" #function;                                                      \
    decltype(epoxy_##function) epoxy_##function = &OnDemand<decltype(epoxy_##function), name_##function>::Call;

extern "C" {

ON_DEMAND(eglBindAPI)
ON_DEMAND(eglCreateContext)
ON_DEMAND(eglDestroyContext)
ON_DEMAND(eglGetCurrentContext)
ON_DEMAND(eglGetError)
ON_DEMAND(eglGetPlatformDisplayEXT)
ON_DEMAND(eglInitialize)
ON_DEMAND(eglMakeCurrent)
ON_DEMAND(eglQueryDevicesEXT)
ON_DEMAND(eglTerminate)
ON_DEMAND(glActiveTexture)
ON_DEMAND(glAttachShader)
ON_DEMAND(glBindBuffer)
ON_DEMAND(glBindBufferBase)
ON_DEMAND(glBindFramebuffer)
ON_DEMAND(glBindRenderbuffer)
ON_DEMAND(glBindSampler)
ON_DEMAND(glBindTexture)
ON_DEMAND(glBindVertexArray)
ON_DEMAND(glBlendFuncSeparate)
ON_DEMAND(glBlitFramebuffer)
ON_DEMAND(glBufferData)
ON_DEMAND(glBufferSubData)
ON_DEMAND(glCheckFramebufferStatus)
ON_DEMAND(glClearBufferfv)
ON_DEMAND(glColorMask)
ON_DEMAND(glCompileShader)
ON_DEMAND(glCreateProgram)
ON_DEMAND(glCreateShader)
ON_DEMAND(glDebugMessageControl)
ON_DEMAND(glDeleteBuffers)
ON_DEMAND(glDeleteFramebuffers)
ON_DEMAND(glDeleteProgram)
ON_DEMAND(glDeleteRenderbuffers)
ON_DEMAND(glDeleteSamplers)
ON_DEMAND(glDeleteShader)
ON_DEMAND(glDeleteTextures)
ON_DEMAND(glDeleteVertexArrays)
ON_DEMAND(glDepthFunc)
ON_DEMAND(glDepthMask)
ON_DEMAND(glDisable)
ON_DEMAND(glDrawArrays)
ON_DEMAND(glEnable)
ON_DEMAND(glEnableVertexAttribArray)
ON_DEMAND(glFramebufferRenderbuffer)
ON_DEMAND(glFramebufferTexture2D)
ON_DEMAND(glGenBuffers)
ON_DEMAND(glGenFramebuffers)
ON_DEMAND(glGenRenderbuffers)
ON_DEMAND(glGenSamplers)
ON_DEMAND(glGenTextures)
ON_DEMAND(glGenVertexArrays)
ON_DEMAND(glGenerateMipmap)
ON_DEMAND(glGetDebugMessageLog)
ON_DEMAND(glGetError)
ON_DEMAND(glGetFloatv)
ON_DEMAND(glGetFramebufferAttachmentParameteriv)
ON_DEMAND(glGetIntegerv)
ON_DEMAND(glGetProgramInfoLog)
ON_DEMAND(glGetProgramiv)
ON_DEMAND(glGetShaderInfoLog)
ON_DEMAND(glGetShaderiv)
ON_DEMAND(glGetString)
ON_DEMAND(glGetUniformBlockIndex)
ON_DEMAND(glGetUniformLocation)
ON_DEMAND(glLinkProgram)
ON_DEMAND(glPixelStorei)
ON_DEMAND(glReadPixels)
ON_DEMAND(glRenderbufferStorageMultisample)
ON_DEMAND(glSamplerParameterf)
ON_DEMAND(glSamplerParameteri)
ON_DEMAND(glShaderSource)
ON_DEMAND(glTexImage2D)
ON_DEMAND(glTexImage2DMultisample)
ON_DEMAND(glTexParameteri)
ON_DEMAND(glUniform1fv)
ON_DEMAND(glUniform1i)
ON_DEMAND(glUniform3fv)
ON_DEMAND(glUniform4f)
ON_DEMAND(glUniform4fv)
ON_DEMAND(glUniformBlockBinding)
ON_DEMAND(glUniformMatrix4fv)
ON_DEMAND(glUseProgram)
ON_DEMAND(glVertexAttribIPointer)
ON_DEMAND(glVertexAttribPointer)
ON_DEMAND(glViewport)

int epoxy_gl_version() {
    return Call(&epoxy_gl_version, "epoxy_gl_version");
}

bool epoxy_is_desktop_gl() {
    return Call(&epoxy_is_desktop_gl, "epoxy_is_desktop_gl");
}

bool epoxy_has_gl_extension(const char* extension) {
    return Call(&epoxy_has_gl_extension, "epoxy_has_gl_extension", extension);
}

bool epoxy_has_egl_extension(EGLDisplay display, const char* extension) {
    return Call(&epoxy_has_egl_extension, "epoxy_has_egl_extension", display, extension);
}
}
