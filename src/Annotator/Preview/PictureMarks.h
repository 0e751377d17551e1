#pragma once

#include "Rendering/Context.h"
#include "Rendering/MemBitmap.h"
#include "Utils/LinearAlgebra.h"

#include <compare>
#include <cstdint>
#include <optional>
#include <vector>

namespace Annotator {

/// Marks on images of red, green, blue, alpha, as a device draws them. They need no font, so that an image is the same
/// on each system.

struct PixelColour {
    std::uint8_t red = 0, green = 0, blue = 0;
};

/// Pixels from left and top up to right and bottom, which do not belong to it.
struct PixelBox {
    int left = 0, top = 0, right = 0, bottom = 0;

    bool Overlaps(const PixelBox& other) const {
        return left < other.right && other.left < right && top < other.bottom && other.top < bottom;
    }
    auto operator<=>(const PixelBox&) const = default;
};

Utils::Vector2 MiddleOf(const PixelBox& box);

/// Where a point appears in an image, in pixels from the left and the top; empty behind the camera.
std::optional<Utils::Vector2> ToPixel(const Utils::Vector3& point, const Utils::Matrix4& viewProjection,
                                      Rendering::Size size);
/// The smallest box around the points that are in front of the camera; empty if there are none.
std::optional<PixelBox> PixelBoxOf(const std::vector<Utils::Vector3>& points, const Utils::Matrix4& viewProjection,
                                   Rendering::Size size);

/// A frame around the box, which keeps a distance from it; what is outside the image is left out.
void DrawFrame(Rendering::MemBitmap& image, const PixelBox& box, PixelColour colour);

struct NumberMark {
    std::uint32_t number = 0;
    Utils::Vector2 at = Utils::Vector2::Zero(); ///< pixels
    PixelColour colour;
};

/// The boxes for the marks' numbers, near their points and apart from each other, as long as the image has space.
std::vector<PixelBox> PlaceNumbers(const std::vector<NumberMark>& marks, Rendering::Size size);
/// Draws each number on a plate of its colour, with a line to a dot at its point.
void DrawNumbers(Rendering::MemBitmap& image, const std::vector<NumberMark>& marks);

} // namespace Annotator
