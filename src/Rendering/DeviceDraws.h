#pragma once

#include "Rendering/Camera.h"
#include "Rendering/DrawParams.h"
#include "Rendering/MemBitmap.h"

/// Code shared by the devices that draw.
namespace Rendering {

/// Shown where a camera image has no picture; same as in the shader for camera images.
inline const Utils::Vector4 kNoCameraPicture(0.0f, 0.0f, 0.5f, 1.0f);

/// Drawn if no bitmap is given.
MemBitmap WhitePixel();

/// From a square of -1 to 1 in x and y to the rectangle.
Utils::Matrix4 ToWorld(const DrawRectangle& rectangle);

/// The parameters in the order of the rectangle shaders: param1, param3, the dimming and param2.
Utils::Vector4 RectScalars(const RectDrawParams& params);
/// Bottom left corner and size, in texture coordinates.
Utils::Vector4 TextureRectangle(const RectDrawParams& params);

enum class ViewportPart { Whole, LeftHalf, RightHalf };

/// Calls draw(part, view) for each part of the viewport that the parameters request.
template <typename Draw>
void ForEachPass(const GeometryDrawParams& params, const Camera& camera, const Utils::Matrix4& view, Draw draw) {
    if (params.leftEye)
        draw(ViewportPart::LeftHalf, view * camera.EyeMatrix(0));
    if (params.rightEye)
        draw(ViewportPart::RightHalf, view * camera.EyeMatrix(1));
    if (params.singleView)
        draw(ViewportPart::Whole, view * camera.EyeMatrix(0));
}

template <typename Draw>
void ForEachPass(const RectDrawParams& params, const Camera& camera, const Utils::Matrix4& view, Draw draw) {
    if (params.mode == 0) {
        draw(ViewportPart::LeftHalf, view * camera.EyeMatrix(0));
        draw(ViewportPart::RightHalf, view * camera.EyeMatrix(1));
    } else if (params.mode != 1) {
        draw(ViewportPart::Whole, view);
    } else if (params.eye <= 1) {
        draw(params.eye == 0 ? ViewportPart::LeftHalf : ViewportPart::RightHalf, view);
    }
}

} // namespace Rendering
