#include "Annotator/Preview/PictureMarks.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <string>

namespace Annotator {

namespace {

using Rendering::MemBitmap;
using Utils::Vector2;

constexpr PixelColour kBlack{0, 0, 0}, kWhite{255, 255, 255};
constexpr int kFrameDistance = 4, kFrameWidth = 2; // pixels
constexpr int kDigitWidth = 5, kDigitHeight = 7;
constexpr int kPlateMargin = 2; // around the digits, before scaling
constexpr int kDotRadius = 2;
constexpr int kDirections = 16;
constexpr std::uint32_t kHeightOfScale = 400; // image rows for each pixel of a digit

/// The rows of each digit from the top; the highest of five bits is its left column.
constexpr std::array<std::array<std::uint8_t, kDigitHeight>, 10> kDigits{{
    {0b01110, 0b10001, 0b10011, 0b10101, 0b11001, 0b10001, 0b01110},
    {0b00100, 0b01100, 0b00100, 0b00100, 0b00100, 0b00100, 0b01110},
    {0b01110, 0b10001, 0b00001, 0b00010, 0b00100, 0b01000, 0b11111},
    {0b11111, 0b00010, 0b00100, 0b00010, 0b00001, 0b10001, 0b01110},
    {0b00010, 0b00110, 0b01010, 0b10010, 0b11111, 0b00010, 0b00010},
    {0b11111, 0b10000, 0b11110, 0b00001, 0b00001, 0b10001, 0b01110},
    {0b00110, 0b01000, 0b10000, 0b11110, 0b10001, 0b10001, 0b01110},
    {0b11111, 0b00001, 0b00010, 0b00100, 0b01000, 0b01000, 0b01000},
    {0b01110, 0b10001, 0b10001, 0b01110, 0b10001, 0b10001, 0b01110},
    {0b01110, 0b10001, 0b10001, 0b01111, 0b00001, 0b00010, 0b01100},
}};

int ScaleOf(Rendering::Size size) {
    return static_cast<int>(std::max(size.height / kHeightOfScale, 1u));
}

PixelBox Grown(const PixelBox& box, int by) {
    return {box.left - by, box.top - by, box.right + by, box.bottom + by};
}

bool IsInside(const PixelBox& box, Rendering::Size size) {
    return box.left >= 0 && box.top >= 0 && box.right <= static_cast<int>(size.width) &&
           box.bottom <= static_cast<int>(size.height);
}

void Fill(MemBitmap& image, const PixelBox& box, PixelColour colour) {
    const int right = std::min(box.right, static_cast<int>(image.Width()));
    const int bottom = std::min(box.bottom, static_cast<int>(image.Height()));
    for (int y = std::max(box.top, 0); y < bottom; ++y)
        for (int x = std::max(box.left, 0); x < right; ++x)
            image.SetPixel(static_cast<std::uint64_t>(x), static_cast<std::uint64_t>(y), colour.red, colour.green,
                           colour.blue, 255);
}

void Outline(MemBitmap& image, const PixelBox& box, int width, PixelColour colour) {
    Fill(image, {box.left, box.top, box.right, box.top + width}, colour);
    Fill(image, {box.left, box.bottom - width, box.right, box.bottom}, colour);
    Fill(image, {box.left, box.top, box.left + width, box.bottom}, colour);
    Fill(image, {box.right - width, box.top, box.right, box.bottom}, colour);
}

PixelBox Square(const Vector2& middle, int radius) {
    const int x = static_cast<int>(std::floor(middle.x())), y = static_cast<int>(std::floor(middle.y()));
    return {x - radius, y - radius, x + radius + 1, y + radius + 1};
}

void DrawLine(MemBitmap& image, const Vector2& from, const Vector2& to, int radius, PixelColour colour) {
    const int steps = static_cast<int>((to - from).cwiseAbs().maxCoeff()) + 1;
    for (int step = 0; step <= steps; ++step) {
        const float fraction = static_cast<float>(step) / static_cast<float>(steps);
        Fill(image, Square(from + (to - from) * fraction, radius), colour);
    }
}

void DrawDigit(MemBitmap& image, char digit, int left, int top, int scale, PixelColour colour) {
    for (int row = 0; row < kDigitHeight; ++row)
        for (int column = 0; column < kDigitWidth; ++column)
            if (kDigits[digit - '0'][row] >> (kDigitWidth - 1 - column) & 1) {
                const int x = left + column * scale, y = top + row * scale;
                Fill(image, {x, y, x + scale, y + scale}, colour);
            }
}

/// Black or white, whichever contrasts more.
PixelColour TextColourOn(PixelColour plate) {
    return 299 * plate.red + 587 * plate.green + 114 * plate.blue > 110'000 ? kBlack : kWhite;
}

void DrawPlate(MemBitmap& image, const NumberMark& mark, const PixelBox& box, int scale) {
    Fill(image, Grown(box, 1), kBlack);
    Fill(image, box, mark.colour);
    int left = box.left + kPlateMargin * scale;
    for (const char digit : std::to_string(mark.number)) {
        DrawDigit(image, digit, left, box.top + kPlateMargin * scale, scale, TextColourOn(mark.colour));
        left += (kDigitWidth + 1) * scale;
    }
}

/// Finds places for plates, one after the other.
class PlatePlacer {
public:
    PlatePlacer(const std::vector<NumberMark>& allMarks, Rendering::Size imageSize)
        : marks(allMarks), size(imageSize), scale(ScaleOf(imageSize)) {}

    void Place(const NumberMark& mark) {
        const int digits = static_cast<int>(std::to_string(mark.number).size());
        const Vector2 plate(static_cast<float>((digits * (kDigitWidth + 1) - 1 + 2 * kPlateMargin) * scale),
                            static_cast<float>((kDigitHeight + 2 * kPlateMargin) * scale));
        for (const bool sparesPoints : {true, false})
            if (const auto box = FindFree(mark.at, plate, sparesPoints)) {
                boxes.push_back(*box);
                return;
            }
        boxes.push_back(BoxAround(mark.at, plate));
    }

    std::vector<PixelBox> boxes;

private:
    static PixelBox BoxAround(const Vector2& middle, const Vector2& plate) {
        const int left = static_cast<int>(std::lround(middle.x() - plate.x() / 2.0f));
        const int top = static_cast<int>(std::lround(middle.y() - plate.y() / 2.0f));
        return {left, top, left + static_cast<int>(plate.x()), top + static_cast<int>(plate.y())};
    }

    /// Tries ellipses around the point, beginning with the nearest that leaves the point visible.
    std::optional<PixelBox> FindFree(const Vector2& at, const Vector2& plate, bool sparesPoints) const {
        const float farthest = static_cast<float>(std::max(size.width, size.height));
        const float step = static_cast<float>(4 * scale);
        for (float distance = step; distance < farthest; distance += step)
            for (int direction = 0; direction < kDirections; ++direction) {
                const float angle = 2.0f * std::numbers::pi_v<float> * static_cast<float>(direction) / kDirections;
                const Vector2 radius = plate / 2.0f + Vector2::Constant(distance);
                const Vector2 middle = at + Vector2(radius.x() * std::sin(angle), -radius.y() * std::cos(angle));
                if (const PixelBox box = BoxAround(middle, plate); IsFree(box, sparesPoints))
                    return box;
            }
        return std::nullopt;
    }

    bool IsFree(const PixelBox& box, bool sparesPoints) const {
        const PixelBox wide = Grown(box, scale + 1);
        const auto covers = [&](const NumberMark& mark) { return wide.Overlaps(Square(mark.at, kDotRadius)); };
        return IsInside(Grown(box, 1), size) &&
               std::ranges::none_of(boxes, [&](const PixelBox& other) { return wide.Overlaps(other); }) &&
               !(sparesPoints && std::ranges::any_of(marks, covers));
    }

    const std::vector<NumberMark>& marks;
    const Rendering::Size size;
    const int scale;
};

} // namespace

Vector2 MiddleOf(const PixelBox& box) {
    return Vector2(static_cast<float>(box.left + box.right), static_cast<float>(box.top + box.bottom)) / 2.0f;
}

std::optional<Vector2> ToPixel(const Utils::Vector3& point, const Utils::Matrix4& viewProjection,
                               Rendering::Size size) {
    const Utils::Vector4 at = Utils::Vector4(point.x(), point.y(), point.z(), 1.0f) * viewProjection;
    const float width = static_cast<float>(size.width), height = static_cast<float>(size.height);
    const Vector2 pixel((at.x() / at.w() + 1.0f) / 2.0f * width, (1.0f - at.y() / at.w()) / 2.0f * height);
    if (!(at.w() > 0.0f) || !pixel.allFinite())
        return std::nullopt;
    // Far outside, where the frame of a box that reaches into the image is not seen either.
    return Vector2(pixel.cwiseMax(Vector2(-width, -height)).cwiseMin(Vector2(2.0f * width, 2.0f * height)));
}

std::optional<PixelBox> PixelBoxOf(const std::vector<Utils::Vector3>& points, const Utils::Matrix4& viewProjection,
                                   Rendering::Size size) {
    std::optional<PixelBox> box;
    for (const Utils::Vector3& point : points) {
        const auto pixel = ToPixel(point, viewProjection, size);
        if (!pixel)
            continue;
        const int x = static_cast<int>(std::floor(pixel->x())), y = static_cast<int>(std::floor(pixel->y()));
        const PixelBox so = box.value_or(PixelBox{x, y, x + 1, y + 1});
        box = {std::min(so.left, x), std::min(so.top, y), std::max(so.right, x + 1), std::max(so.bottom, y + 1)};
    }
    return box;
}

void DrawFrame(MemBitmap& image, const PixelBox& box, PixelColour colour) {
    const PixelBox frame = Grown(box, kFrameDistance + kFrameWidth + 2);
    Outline(image, frame, kFrameWidth + 2, kBlack);
    Outline(image, Grown(frame, -1), kFrameWidth, colour);
}

std::vector<PixelBox> PlaceNumbers(const std::vector<NumberMark>& marks, Rendering::Size size) {
    PlatePlacer placer(marks, size);
    for (const NumberMark& mark : marks)
        placer.Place(mark);
    return std::move(placer.boxes);
}

void DrawNumbers(MemBitmap& image, const std::vector<NumberMark>& marks) {
    const std::vector<PixelBox> boxes = PlaceNumbers(marks, Rendering::SizeOf(image));
    for (std::size_t i = 0; i < marks.size(); ++i)
        DrawLine(image, marks[i].at, MiddleOf(boxes[i]), 1, kBlack);
    for (std::size_t i = 0; i < marks.size(); ++i) {
        DrawLine(image, marks[i].at, MiddleOf(boxes[i]), 0, marks[i].colour);
        Fill(image, Square(marks[i].at, kDotRadius + 1), kBlack);
        Fill(image, Square(marks[i].at, kDotRadius), marks[i].colour);
    }
    for (std::size_t i = 0; i < marks.size(); ++i)
        DrawPlate(image, marks[i], boxes[i], ScaleOf(Rendering::SizeOf(image)));
}

} // namespace Annotator
