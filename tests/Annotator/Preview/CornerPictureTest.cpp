#include "Annotator/Preview/CornerPicture.h"

#include "Rendering/DeviceDraws.h"
#include "Rendering/Memory/NullContext.h"

#include <gtest/gtest.h>

namespace Annotator {
namespace {

using Utils::Matrix4;
using Utils::Vector3;

/// Records where rectangles are drawn.
struct RectangleContext : Rendering::Memory::NullContext {
    void DrawBitmap(const Matrix4& view, const Matrix4& projection, const Rendering::DrawRectangle& rectangle,
                    Rendering::GPUBitmap& bitmap, const Rendering::RectDrawParams& params) override {
        EXPECT_TRUE(IsBitmapValid(&bitmap) && !params.depthTest);
        toClip = Rendering::ToWorld(rectangle) * view * projection;
        sizes.push_back(bitmap.Size());
    }

    Matrix4 toClip = Matrix4::Identity();
    std::vector<Rendering::Size> sizes;
};

TEST(CornerPicture, IsDrawnPixelByPixelInTheUpperLeftCorner) {
    Rendering::Size view{400, 200};
    CornerPicture picture([&] { return view; });
    RectangleContext context;
    const auto draw = [&] {
        context.sizes.clear();
        // A camera's matrices have no effect.
        picture.Render(context, Utils::Translation({7, 7, 7}), Utils::Scaling(3));
        return context.sizes;
    };
    EXPECT_TRUE(draw().empty()) << "no picture yet";
    picture.Show({100, 50});
    EXPECT_EQ(draw(), (std::vector<Rendering::Size>{{100, 50}}));
    // 8 pixels from the edges: x from 8 to 108 of 400, y from 8 to 58 of 200, with -1 at the left and 1 at the top.
    EXPECT_TRUE(Utils::TransformPoint({-1, 1, 0}, context.toClip).isApprox(Vector3(-0.96f, 0.92f, 0.5f)));
    EXPECT_TRUE(Utils::TransformPoint({1, -1, 0}, context.toClip).isApprox(Vector3(-0.46f, 0.42f, 0.5f)));
    picture.Show({10, 20});
    EXPECT_EQ(draw(), (std::vector<Rendering::Size>{{10, 20}}));
    RectangleContext other;
    picture.Render(other, Matrix4::Identity(), Matrix4::Identity());
    EXPECT_EQ(other.sizes.size(), 1u) << "on a new device";
    view = {0, 200};
    EXPECT_TRUE(draw().empty());
    view = {400, 200};
    picture.Show({});
    EXPECT_TRUE(draw().empty());
}

} // namespace
} // namespace Annotator
