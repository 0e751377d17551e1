#include "Rendering/OpenGL/EglDevice.h"
#include "Rendering/OpenGL/Shader.h"
#include "Support/FatalErrorRecorder.h"
#include "Support/Picture.h"

#include <gtest/gtest.h>

namespace {

using Rendering::GeometryVertex;
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
    EXPECT_TRUE(dialog.texts.empty());
    EXPECT_THROW(Rendering::OpenGL::Shader("Bad", {kVertex}, {kFragment}), std::exception);
    ASSERT_EQ(dialog.captions, (std::vector<std::string>{"Vorelle FSX: Shader compilation error", "Vorelle FSX"}));
    EXPECT_TRUE(dialog.texts[0].starts_with("Bad:\n") && dialog.texts[0].find("nonsense") != std::string::npos)
        << dialog.texts[0];
    EXPECT_TRUE(dialog.texts[1].starts_with("Vorelle Fatal Error Encountered ("));
}

TEST_F(GLContextTest, ADriversErrorIsFatalWithItsCode) {
    Support::FatalErrorRecorder dialog;
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
    std::vector<std::unique_ptr<Rendering::GPUBitmap>> own; // their names are likely the same numbers
    for (int i = 0; i < 20; ++i)
        own.push_back(device.Context().CreateBitmap(Support::Bitmap("R\n")));
    theirs.clear();
    for (const auto& bitmap : own)
        EXPECT_EQ(Support::Picture(device.Read(*bitmap)), "R\n");
}

TEST_F(GLContextTest, AFrameTargetMayBeResizedAndSmoothEdges) {
    Rendering::OpenGL::GLFrameTarget frame(device.Context(), 4);
    frame.Resize({0, 0});
    EXPECT_EQ(frame.Size(), (Rendering::Size{1, 1}));
    frame.Resize({3, 1});
    frame.Begin({0, 0, 0, 1});
    std::vector<GeometryVertex> leftHalf(6);
    const float corners[6][2] = {{-1, -1}, {-1, 1}, {0, 1}, {0, 1}, {0, -1}, {-1, -1}};
    for (std::size_t i = 0; i < leftHalf.size(); ++i)
        leftHalf[i].position = {corners[i][0], corners[i][1], 0.5f};
    Rendering::GeometryDrawParams params;
    params.leftEye = params.rightEye = false;
    params.singleView = true;
    params.firstColour = {1, 1, 1};
    const Matrix4 same = Matrix4::Identity();
    device.Context().DrawGeometry(same, same, same, *device.Context().CreateGeometry(leftHalf), nullptr, nullptr,
                                  params);
    EXPECT_EQ(Support::Picture(frame.Read()), "Wg.\n") << "the edge runs through the middle pixel";
}

} // namespace
