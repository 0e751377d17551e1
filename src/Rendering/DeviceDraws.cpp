#include "Rendering/DeviceDraws.h"

namespace Rendering {

namespace {

constexpr float kDimmed = 0.1f;

} // namespace

MemBitmap WhitePixel() {
    MemBitmap pixel(1, 1);
    pixel.SetPixel(0, 0, 255, 255, 255, 255);
    return pixel;
}

Utils::Matrix4 ToWorld(const DrawRectangle& rectangle) {
    const Utils::Vector4 scale(rectangle.size.x() / 2.0f, rectangle.size.y() / 2.0f, 1.0f, 1.0f);
    return scale.asDiagonal() * (Utils::Rotation(rectangle.rotation) * Utils::Translation(rectangle.position));
}

Utils::Vector4 RectScalars(const RectDrawParams& params) {
    return {params.param1, params.param3, params.dim ? kDimmed : 1.0f, params.param2};
}

Utils::Vector4 TextureRectangle(const RectDrawParams& params) {
    const Utils::Vector2 &origin = params.textureOrigin, &size = params.textureSize;
    return {origin.x(), 1.0f - origin.y() - size.y(), size.x(), size.y()};
}

} // namespace Rendering
