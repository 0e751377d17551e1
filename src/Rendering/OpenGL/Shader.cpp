#include "Rendering/OpenGL/Shader.h"

#include "Logging/Logger.h"
#include "Rendering/OpenGL/GLError.h"
#include "Utils/FatalError.h"

#include <string>
#include <vector>

namespace Rendering::OpenGL {

namespace {

constexpr const char* kVersion = "#version 330 core\n";
constexpr const char* kCaption = "Vorelle FSX: Shader compilation error";

[[noreturn]] void Refuse(const char* name, const std::string& words) {
    if (!words.empty()) {
        const std::string text = std::string(name) + ":\n" + words;
        Logging::Logger::Get().Log(HERE, text);
        Utils::ShowErrorBox(kCaption, text);
    }
    Utils::FatalError(HERE, GL_INVALID_OPERATION);
}

template <typename GetLength, typename GetText>
std::string Words(GLuint object, GetLength getLength, GetText getText) {
    GLint length = 0;
    getLength(object, GL_INFO_LOG_LENGTH, &length);
    if (length <= 1)
        return {};
    std::string words(static_cast<std::size_t>(length), '\0');
    GLsizei written = 0;
    getText(object, length, &written, words.data());
    words.resize(static_cast<std::size_t>(written));
    return words;
}

GLuint Compile(GLenum stage, const char* name, std::initializer_list<const char*> pieces) {
    std::vector<const char*> text = {kVersion};
    text.insert(text.end(), pieces);
    const GLuint shader = glCreateShader(stage);
    glShaderSource(shader, static_cast<GLsizei>(text.size()), text.data(), nullptr);
    glCompileShader(shader);
    GLint compiled = GL_FALSE; // queried here because a failed compilation is not a GL error
    glGetShaderiv(shader, GL_COMPILE_STATUS, &compiled);
    if (!compiled) {
        const std::string words = Words(shader, glGetShaderiv, glGetShaderInfoLog);
        glDeleteShader(shader);
        Refuse(name, words);
    }
    return shader;
}

} // namespace

Shader::Shader(const char* name, std::initializer_list<const char*> vertexText,
               std::initializer_list<const char*> fragmentText)
    : program(glCreateProgram()) {
    for (const auto& [stage, text] : {std::pair(GL_VERTEX_SHADER, vertexText), {GL_FRAGMENT_SHADER, fragmentText}}) {
        const GLuint shader = Compile(static_cast<GLenum>(stage), name, text);
        glAttachShader(program, shader);
        glDeleteShader(shader); // stays alive as part of the program
    }
    glLinkProgram(program);
    GLint linked = GL_FALSE;
    glGetProgramiv(program, GL_LINK_STATUS, &linked);
    if (!linked)
        Refuse(name, Words(program, glGetProgramiv, glGetProgramInfoLog));
    CheckGL(HERE, name);
}

Shader::~Shader() {
    glDeleteProgram(program);
}

void Shader::SetUnit(const char* sampler, GLint unit) const {
    Use();
    glUniform1i(Uniform(sampler), unit);
}

void Shader::SetBlock(const char* block, GLuint binding) const {
    const GLuint index = glGetUniformBlockIndex(program, block);
    if (index != GL_INVALID_INDEX)
        glUniformBlockBinding(program, index, binding);
}

} // namespace Rendering::OpenGL
