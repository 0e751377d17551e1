#include "Rendering/ContextConformance.h"
#include "Rendering/OpenGL/EglDevice.h"
#include "Rendering/OpenGL/Shader.h"
#include "Rendering/PictureConformance.h"
#include "Support/FatalErrorRecorder.h"
#include "Support/Picture.h"

#include <gtest/gtest.h>

namespace {

using Utils::Matrix4;

class GLContextTest : public testing::Test {
protected:
    Conformance::EglDevice device;
};

TEST_F(GLContextTest, AShaderThatDoesNotCompileIsShownBeforeTheFatalError) {
    constexpr const char* kVertex = "void main() { gl_Position = vec4(0.0); }";
    constexpr const char* kFragment = "out vec4 result; void main() { result = nonsense; }";
    Support::FatalErrorRecorder dialog;
    EXPECT_NO_THROW(
        Rendering::OpenGL::Shader("Good", {kVertex}, {"out vec4 result; void main() { result = vec4(1.0); }"}));
    EXPECT_THROW(Rendering::OpenGL::Shader("Bad", {kVertex}, {kFragment}), std::exception);
    ASSERT_EQ(dialog.captions, (std::vector<std::string>{"Vorelle FSX: Shader compilation error", "Vorelle FSX"}));
    EXPECT_TRUE(dialog.texts[0].starts_with("Bad:\n") && dialog.texts[0].find("nonsense") != std::string::npos)
        << dialog.texts[0];
    EXPECT_TRUE(dialog.texts[1].starts_with("Vorelle Fatal Error Encountered ("));
}

TEST_F(GLContextTest, ADriversErrorIsFatalWithItsCode) {
    const Support::FatalErrorRecorder dialog;
    EXPECT_THROW(device.Context().CreateRenderTarget({1u << 20, 1}, 1, 0), std::exception);
    EXPECT_THROW(device.Context().CreateGeometry({}), std::exception);
    ASSERT_EQ(dialog.texts.size(), 2u);
    const std::string invalidValue = std::to_string(0x0501);
    for (const std::string& text : dialog.texts)
        EXPECT_TRUE(text.starts_with("Vorelle Fatal Error Encountered (" + invalidValue + ", ")) << text;
    EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
}

TEST_F(GLContextTest, ObjectsThatOutliveTheirContextLeaveTheNextOneAlone) {
    auto gone = std::make_unique<Conformance::EglDevice>();
    std::vector<std::unique_ptr<Rendering::GPUBitmap>> theirs;
    for (int i = 0; i < 20; ++i)
        theirs.push_back(gone->Context().CreateBitmap(Support::Bitmap("B\n")));
    gone.reset();
    device.MakeCurrent();
    std::vector<std::unique_ptr<Rendering::GPUBitmap>> own; // their GL names are probably the same numbers
    for (int i = 0; i < 20; ++i)
        own.push_back(device.Context().CreateBitmap(Support::Bitmap("R\n")));
    theirs.clear();
    for (const auto& bitmap : own)
        EXPECT_EQ(Support::Picture(device.Read(*bitmap)), "R\n");
}

TEST_F(GLContextTest, AFrameTargetCanBeResizedAndAntialiased) {
    Rendering::OpenGL::GLFrameTarget frame(device.Context(), 4);
    frame.Resize({0, 0});
    EXPECT_EQ(frame.Size(), (Rendering::Size{1, 1}));
    frame.Resize({3, 1});
    frame.Begin({0, 0, 0, 1});
    const Matrix4 same = Matrix4::Identity();
    const auto leftHalf = device.Context().CreateGeometry(Conformance::Rectangle({-1, -1}, {0, 1}));
    device.Context().DrawGeometry(same, same, same, *leftHalf, nullptr, nullptr, Conformance::Flat());
    EXPECT_EQ(Support::Picture(frame.Read()), "Wg.\n") << "the edge runs through the middle pixel";
    GLint matrices = 0;
    glGetIntegeri_v(GL_UNIFORM_BUFFER_BINDING, 0, &matrices);
    EXPECT_NE(matrices, 0) << "a shader's uniform block has a buffer even if it is not read";
}

} // namespace

namespace Conformance {

INSTANTIATE_TYPED_TEST_SUITE_P(OpenGL, ContextObjects, EglDevice);
INSTANTIATE_TYPED_TEST_SUITE_P(OpenGL, ContextPictures, EglDevice);

} // namespace Conformance
