#include "Rendering/MemBitmap.h"

#include "Support/FatalErrorRecorder.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace {

using Rendering::MemBitmap;

TEST(MemBitmapTest, ResizingDropsThePictureAndRefusesNoSize) {
    MemBitmap bitmap(3, 2);
    bitmap.SetPixel(2, 1, 1, 2, 3, 4);
    EXPECT_EQ(bitmap.Pixels()[5], 0x04030201u) << "rows follow each other, bytes lie in their order";
    bitmap.Resize(2, 4);
    EXPECT_EQ(bitmap.Pixels().size(), 8u);
    EXPECT_TRUE(std::ranges::all_of(bitmap.Pixels(), [](std::uint32_t pixel) { return pixel == 0; }));
    Support::FatalErrorRecorder dialog;
    EXPECT_THROW(bitmap.Resize(0, 4), std::exception);
    EXPECT_THROW(MemBitmap(4, 0), std::exception);
    EXPECT_EQ(dialog.texts.size(), 2u);
    EXPECT_EQ(bitmap.Width(), 2u) << "a refused size leaves the bitmap as it was";
}

TEST(MemBitmapTest, SwappingRedAndBlueLeavesTheOtherBytes) {
    MemBitmap bitmap(1, 2), target(5, 5);
    bitmap.SetPixel(0, 0, 1, 2, 3, 4);
    bitmap.SetPixel(0, 1, 0xFF, 0, 0x80, 0x7F);
    bitmap.CopySwappingRedBlue(target);
    ASSERT_EQ(target.Pixels().size(), 2u);
    EXPECT_EQ(target.Pixels()[0], 0x04010203u);
    EXPECT_EQ(target.Pixels()[1], 0x7FFF0080u);
}

} // namespace
