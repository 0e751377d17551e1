#include "Annotator/Preview/PictureMarks.h"

#include "Support/Picture.h"

#include <gtest/gtest.h>

namespace Annotator {
namespace {

using Utils::Vector2;
using Utils::Vector3;

TEST(PictureMarks, FindsWherePointsAppear) {
    // 90 degrees wide and high: at distance 2, the image reaches from -2 to 2.
    const Utils::Matrix4 projection = Utils::PerspectiveFov(1.5707964f, 1.0f, 0.1f, 9.0f);
    const auto pixel = ToPixel({1, 2, 2}, projection, {80, 40});
    EXPECT_TRUE(pixel && pixel->isApprox(Vector2(60, 0), 1e-4f));
    EXPECT_FALSE(ToPixel({1, 2, -2}, projection, {80, 40})) << "behind the camera";
    const std::vector<Vector3> points{{-1.01f, 0.99f, 2}, {0.99f, -0.99f, 2}, {0, 0, -1}};
    EXPECT_EQ(PixelBoxOf(points, projection, {80, 40}), (PixelBox{19, 10, 60, 30}));
    EXPECT_FALSE(PixelBoxOf({Vector3(0, 0, -1)}, projection, {80, 40}));
}

TEST(PictureMarks, FramesABox) {
    Rendering::MemBitmap image(16, 5);
    DrawFrame(image, {7, 8, 8, 9}, {255, 0, 0});
    // Four pixels free, then one black, two red and one black; the lower edge is outside the image.
    EXPECT_EQ(Support::Picture(image), "................\n"
                                       "RRRRRRRRRRRRRRR.\n"
                                       "RRRRRRRRRRRRRRR.\n"
                                       "RR...........RR.\n"
                                       "RR...........RR.\n");
}

TEST(PictureMarks, DrawsANumberBesideItsPoint) {
    Rendering::MemBitmap image(32, 32);
    DrawNumbers(image, {{17, Vector2(16.5f, 28.5f), {255, 255, 0}}});
    EXPECT_EQ(Support::Picture(image).substr(9 * 33), // nothing above
              "................................\n"
              ".........YYYYYYYYYYYYYYY........\n"
              ".........YYYYYYYYYYYYYYY........\n"
              ".........YYYY.YYY.....YY........\n"
              ".........YYY..YYYYYYY.YY........\n"
              ".........YYYY.YYYYYY.YYY........\n"
              ".........YYYY.YYYYY.YYYY........\n"
              ".........YYYY.YYYY.YYYYY........\n"
              ".........YYYY.YYYY.YYYYY........\n"
              ".........YYY...YYY.YYYYY........\n"
              ".........YYYYYYYYYYYYYYY........\n"
              ".........YYYYYYYYYYYYYYY........\n"
              "................................\n"
              "................Y...............\n"
              "................Y...............\n"
              "................Y...............\n"
              "................................\n"
              "..............YYYYY.............\n"
              "..............YYYYY.............\n"
              "..............YYYYY.............\n"
              "..............YYYYY.............\n"
              "..............YYYYY.............\n"
              "................................\n");
}

TEST(PictureMarks, KeepsNumbersApart) {
    const Rendering::Size size{1280, 800};
    std::vector<NumberMark> marks;
    for (std::uint32_t i = 0; i < 60; ++i) // a grid of controls in a corner, every other one twice
        marks.push_back(
            {680 + i, Vector2(static_cast<float>(i / 2 % 10) * 9.0f, static_cast<float>(i / 20) * 9.0f), {}});
    const std::vector<PixelBox> boxes = PlaceNumbers(marks, size);
    ASSERT_EQ(boxes.size(), marks.size());
    for (std::size_t i = 0; i < boxes.size(); ++i) {
        EXPECT_TRUE(boxes[i].left >= 0 && boxes[i].top >= 0 && boxes[i].right <= 1280 && boxes[i].bottom <= 800);
        for (std::size_t other = 0; other < i; ++other)
            EXPECT_FALSE(boxes[i].Overlaps(boxes[other])) << i << " and " << other;
        for (const NumberMark& mark : marks)
            EXPECT_FALSE(
                mark.at.x() >= static_cast<float>(boxes[i].left) && mark.at.y() >= static_cast<float>(boxes[i].top) &&
                mark.at.x() < static_cast<float>(boxes[i].right) && mark.at.y() < static_cast<float>(boxes[i].bottom))
                << i << " covers " << mark.number;
    }
}

} // namespace
} // namespace Annotator
