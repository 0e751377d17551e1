#include "Rendering/Memory/MemoryContext.h"

#include <gmock/gmock.h>

namespace {

using Rendering::MemBitmap;
using Rendering::Memory::MemoryBitmap;
using testing::ElementsAre;

TEST(MemoryContextTest, CopiesARegionToTheTargetsTopLeftAndStaysInside) {
    Rendering::Memory::MemoryContext context;
    MemBitmap picture(3, 2);
    for (std::uint8_t i = 0; i < 6; ++i)
        picture.SetPixel(i % 3, i / 3, i, i, i, i);
    const auto source = context.CreateBitmap(picture);
    const auto target = context.CreateRenderTarget({2, 2}, 1, 0);
    context.ClearBitmap(target.get(), {1, 1, 1, 1});
    context.CopyBitmapRegion(*target, *source, {1, 1}, {5, 5});
    EXPECT_THAT(dynamic_cast<MemoryBitmap&>(*target).pixels.Pixels(),
                ElementsAre(0x04040404, 0x05050505, 0xFFFFFFFF, 0xFFFFFFFF));
    context.CopyBitmapRegion(*target, *source, {9, 9}, {1, 1});
    context.CopyBitmap(*target, *source);
    EXPECT_THAT(dynamic_cast<MemoryBitmap&>(*target).pixels.Pixels(),
                ElementsAre(0, 0x01010101, 0x03030303, 0x04040404));
}

TEST(MemoryContextTest, ACameraImageIsItsGreyPicture) {
    Rendering::Memory::MemoryContext context;
    const std::uint8_t grey[] = {0, 0x10, 0xFF};
    const auto bitmap = context.CreateBitmapFromCameraImage({{3, 1}, grey, {}, {}});
    EXPECT_THAT(dynamic_cast<MemoryBitmap&>(*bitmap).pixels.Pixels(), ElementsAre(0xFF000000, 0xFF101010, 0xFFFFFFFF));
}

} // namespace
