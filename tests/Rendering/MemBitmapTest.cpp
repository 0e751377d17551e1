#include "Rendering/MemBitmap.h"

#include "Support/FatalErrorRecorder.h"

#include <gmock/gmock.h>

namespace {

using Rendering::MemBitmap;
using testing::ElementsAre;

TEST(MemBitmapTest, KeepsRowsOfPixelsAndRejectsSizeZero) {
    MemBitmap bitmap(1, 2), target(5, 5);
    bitmap.SetPixel(0, 0, 1, 2, 3, 4);
    bitmap.SetPixel(0, 1, 0xFF, 0, 0x80, 0x7F);
    bitmap.CopySwappingRedBlue(target);
    EXPECT_THAT(target.Pixels(), ElementsAre(0x04010203, 0x7FFF0080)) << "the other bytes stay";
    const Support::FatalErrorRecorder dialog;
    EXPECT_THROW(bitmap.Resize(0, 4), std::exception);
    EXPECT_THROW(MemBitmap(4, 0), std::exception);
    EXPECT_EQ(dialog.texts.size(), 2u);
    EXPECT_THAT(bitmap.Pixels(), ElementsAre(0x04030201, 0x7F8000FF)) << "a rejected size leaves the bitmap unchanged";
    bitmap.CopySwappingRedBlue(bitmap);
    EXPECT_THAT(bitmap.Pixels(), ElementsAre(0x04010203, 0x7FFF0080)) << "to itself";
    bitmap.Resize(2, 1);
    EXPECT_THAT(bitmap.Pixels(), ElementsAre(0, 0));
}

} // namespace
