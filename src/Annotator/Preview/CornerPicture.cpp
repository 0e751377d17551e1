#include "Annotator/Preview/CornerPicture.h"

#include <utility>

namespace Annotator {

namespace {

constexpr float kMargin = 8.0f;         // pixels between the picture and the edges of the view
constexpr std::uint32_t kWholeView = 2; // RectDrawParams::mode

/// The rectangle in clip space, whose view is 2 wide and 2 high.
Rendering::DrawRectangle Place(Rendering::Size picture, Rendering::Size view) {
    const Utils::Vector2 pixel(2.0f / static_cast<float>(view.width), 2.0f / static_cast<float>(view.height));
    const Utils::Vector2 size =
        Utils::Vector2(static_cast<float>(picture.width), static_cast<float>(picture.height)).cwiseProduct(pixel);
    const Utils::Vector2 margin = kMargin * pixel;
    Rendering::DrawRectangle rectangle;
    rectangle.position = {-1.0f + margin.x() + size.x() / 2.0f, 1.0f - margin.y() - size.y() / 2.0f, 0.5f};
    rectangle.size = size;
    return rectangle;
}

} // namespace

void CornerPicture::Show(Rendering::MemBitmap newPicture) {
    picture = std::move(newPicture);
    changed = true;
}

void CornerPicture::Render(Rendering::Context& context, const Utils::Matrix4&, const Utils::Matrix4&) {
    Update(context);
    const Rendering::Size view = viewSize();
    if (!bitmap || view.Area() == 0)
        return;
    Rendering::RectDrawParams params;
    params.mode = kWholeView;
    params.depthTest = params.depthWrite = false;
    const Utils::Matrix4 unchanged = Utils::Matrix4::Identity();
    context.DrawBitmap(unchanged, unchanged, Place(bitmap->Size(), view), *bitmap, params);
}

/// In a frame, because objects of the device are only created and released while it is current.
void CornerPicture::Update(Rendering::Context& context) {
    if (picture.Pixels().empty())
        bitmap.reset();
    else if (changed || !context.IsBitmapValid(bitmap.get()))
        bitmap = context.CreateBitmap(picture);
    changed = false;
}

} // namespace Annotator
